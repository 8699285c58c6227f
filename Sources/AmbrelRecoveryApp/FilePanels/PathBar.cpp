#include "AmbrelRecoveryApp/FilePanels/PathBar.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/FilePanels/PanelTexts.h"
#include "AmbrelRecoveryApp/FilePanels/PathLabel.h"
#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"

#include <QHBoxLayout>

namespace {

constexpr int spacing = 10;

RecoverySymbol backSymbol() {
    return interfaceDirection() == Qt::RightToLeft ? RecoverySymbol::chevronRight : RecoverySymbol::chevronLeft;
}

} // namespace

PathBar::PathBar(QWidget* parent)
    : QWidget(parent), back_(new SecondaryRecoveryButton(backSymbol(), this)),
      up_(new SecondaryRecoveryButton(RecoverySymbol::arrowUp, this)), path_(new PathLabel(this)) {
    back_->setSymbolLabel(AmbrelStrings::localized(AmbrelStrings::genericBack()));
    up_->setSymbolLabel(PanelTexts::localized(PanelTexts::Text::enclosingFolder));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    for (SecondaryRecoveryButton* const button : {back_, up_}) {
        button->setButtonHeight(SecondaryRecoveryButton::lowHeight);
        layout->addWidget(button);
    }
    layout->addWidget(path_, 1);
    connect(back_, &SecondaryRecoveryButton::clicked, this, &PathBar::goBack);
    connect(up_, &SecondaryRecoveryButton::clicked, this, &PathBar::goUp);
}

void PathBar::begin(const std::filesystem::path& folder) {
    history_.clear();
    show(folder);
}

void PathBar::goTo(const std::filesystem::path& folder) {
    if (folder != folder_) {
        history_.push_back(folder_);
    }
    show(folder);
}

void PathBar::goBack() {
    if (!history_.empty()) {
        const std::filesystem::path last = std::move(history_.back());
        history_.pop_back();
        show(last);
    }
}

void PathBar::goUp() {
    if (folder_.has_relative_path()) {
        goTo(folder_.parent_path());
    }
}

void PathBar::show(const std::filesystem::path& folder) {
    folder_ = folder;
    path_->setPath(folder_);
    back_->setEnabled(!history_.empty());
    up_->setEnabled(folder_.has_relative_path());
    emit folderChanged(folder_);
}
