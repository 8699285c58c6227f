#include "AmbrelRecoveryApp/Screens/CompletionScreen.h"

#include "AmbrelRecoveryApp/Controls/Card.h"
#include "AmbrelRecoveryApp/Controls/PathView.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/SymbolView.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Screens/ButtonRow.h"
#include "AmbrelRecoveryApp/Screens/TrailingInset.h"

#include <QHBoxLayout>

CompletionScreen::CompletionScreen(QWidget* parent)
    : QWidget(parent), title_(new TextLabel(recoveryFont(24, QFont::DemiBold), RecoveryPalette::primary(), this)),
      exported_(new TextLabel(recoveryFont(15, QFont::Normal), RecoveryPalette::secondary(), this)),
      pathLabel_(new TextLabel(recoveryFont(12, QFont::DemiBold), RecoveryPalette::muted(), this)),
      path_(new PathView(this)), reveal_(new PrimaryRecoveryButton(std::nullopt, this)),
      chooseAnother_(new SecondaryRecoveryButton(std::nullopt, this)) {
    applyPath(std::nullopt);
    chooseAnother_->setButtonHeight(reveal_->sizeHint().height());
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(withTrailingInset(makeCard()));
    layout->addStretch(1);
}

QWidget* CompletionScreen::makeCard() {
    auto* const card = new Card(this);
    auto* const layout = new QVBoxLayout(card);
    layout->setContentsMargins(35, 35, 35, 35);
    layout->setSpacing(13);
    layout->addWidget(new SymbolView(RecoverySymbol::checkmark, 24, RecoveryPalette::success(), card, QFont::Bold,
                                     SymbolView::Shape{.size = 64, .cornerRadius = 32, .opacity = 0.14}),
                      0, Qt::AlignLeading);
    layout->addSpacing(1);
    layout->addWidget(title_);
    layout->addWidget(exported_);
    layout->addWidget(pathLabel_);
    layout->addWidget(path_);
    layout->addSpacing(9);
    layout->addWidget(new ButtonRow({reveal_, chooseAnother_}, card));
    return card;
}

void CompletionScreen::apply(const CompletionContent& content) {
    title_->setText(content.title);
    exported_->setVisible(content.exported.has_value());
    exported_->setText(content.exported.value_or(QString()));
    pathLabel_->setText(content.pathLabel);
    path_->setAccessibleName(content.pathLabel);
    reveal_->setLabel(content.revealLabel);
    chooseAnother_->setLabel(content.chooseAnotherLabel);
}

void CompletionScreen::applyPath(const std::optional<std::filesystem::path>& folder) {
    pathLabel_->setVisible(folder.has_value());
    path_->setVisible(folder.has_value());
    if (folder) {
        path_->setPath(*folder);
    }
}

void CompletionScreen::selectPath() {
    path_->selectAll();
    path_->setFocus();
}
