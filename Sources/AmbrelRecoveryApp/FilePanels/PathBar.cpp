#include "AmbrelRecoveryApp/FilePanels/PathBar.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"
#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int spacing = 10;

} // namespace

PathBar::PathBar(QWidget* parent)
    : QWidget(parent),
      back_(new SecondaryRecoveryButton(
          interfaceDirection() == Qt::RightToLeft ? RecoverySymbol::chevronRight : RecoverySymbol::chevronLeft, this)),
      up_(new SecondaryRecoveryButton(RecoverySymbol::arrowUp, this)) {
    setFont(recoveryFont(14, QFont::DemiBold));
    back_->setSymbolLabel(AmbrelStrings::localized(AmbrelStrings::genericBack()));
    up_->setSymbolLabel(RecoveryAppCopy::localized(RecoveryAppCopy::Text::enclosingFolder));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    for (SecondaryRecoveryButton* const button : {back_, up_}) {
        button->setButtonHeight(SecondaryRecoveryButton::lowHeight);
        layout->addWidget(button);
    }
    layout->addStretch();
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
    setAccessibleName(FileNameText::readable(folder_.native()));
    update();
    back_->setEnabled(!history_.empty());
    up_->setEnabled(folder_.has_relative_path());
    emit folderChanged(folder_);
}

void PathBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(RecoveryPalette::primary());
    painter.setLayoutDirection(layoutDirection());
    const int leading = back_->width() + up_->width() + 2 * spacing;
    const QRect place = QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(leading, 0, 0, 0));
    painter.drawText(
        place, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
        FileNameText::isolated(fontMetrics().elidedText(accessibleName(), Qt::ElideMiddle, place.width())));
}
