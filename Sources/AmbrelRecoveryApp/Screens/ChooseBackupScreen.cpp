#include "AmbrelRecoveryApp/Screens/ChooseBackupScreen.h"

#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/ProgressRow.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ShownPart.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Screens/CredentialCard.h"
#include "AmbrelRecoveryApp/Screens/PackageCard.h"
#include "AmbrelRecoveryApp/Screens/PreparationCard.h"
#include "AmbrelRecoveryApp/Screens/TrailingInset.h"

#include <QHBoxLayout>

ChooseBackupScreen::ChooseBackupScreen(QWidget* parent)
    : QWidget(parent), package_(new PackageCard(this)), preparation_(new PreparationCard(this)),
      credential_(new CredentialCard(this)), inspect_(new PrimaryRecoveryButton(RecoverySymbol::checkmarkShield, this)),
      inspecting_(new ProgressRow(this)),
      footnote_(new TextLabel(recoveryFont(12, QFont::Normal), RecoveryPalette::muted(), this, 16)) {
    // As high as the button that it replaces.
    inspecting_->setMinimumHeight(inspect_->sizeHint().height());

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addLayout(withTrailingInset(package_));
    layout->addLayout(withTrailingInset(preparation_));
    layout->addLayout(withTrailingInset(credential_));
    layout->addSpacing(4);
    layout->addWidget(inspect_, 0, Qt::AlignLeading);
    layout->addLayout(withTrailingInset(inspecting_));
    layout->addLayout(withTrailingInset(footnote_));
    layout->addStretch(1);
}

void ChooseBackupScreen::apply(const ChooseBackupContent& content) {
    if (content_ == content) {
        return;
    }
    content_ = content;
    package_->apply(content.package);
    if (content.preparation) {
        preparation_->apply(*content.preparation);
    }
    ShownPart::setShown(preparation_, content.preparation.has_value());
    inspect_->setLabel(content.inspectLabel);
    inspect_->setVisible(!content.inspecting);
    inspect_->setEnabled(content.canInspect);
    credential_->apply(content.credential);
    if (content.inspecting) {
        inspecting_->apply(*content.inspecting);
    }
    ShownPart::setShown(inspecting_, content.inspecting.has_value());
    footnote_->setText(content.footnote);
}

SecondaryRecoveryButton* ChooseBackupScreen::chooseButton() const {
    return package_->chooseButton();
}

SegmentedPicker* ChooseBackupScreen::factorPicker() const {
    return credential_->factorPicker();
}

SecureField* ChooseBackupScreen::secretField() const {
    return credential_->secretField();
}

QWidget* ChooseBackupScreen::cancelButton() const {
    return preparation_->isHidden() ? inspecting_->cancelButton() : preparation_->cancelButton();
}
