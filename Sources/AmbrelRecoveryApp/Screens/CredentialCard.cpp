#include "AmbrelRecoveryApp/Screens/CredentialCard.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecureField.h"
#include "AmbrelRecoveryApp/Controls/SegmentedPicker.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"

#include <QVBoxLayout>

CredentialCard::CredentialCard(QWidget* parent)
    : Card(parent), title_(new TextLabel(recoveryFont(20, QFont::DemiBold), RecoveryPalette::primary(), this)),
      body_(new TextLabel(recoveryFont(13, QFont::Normal), RecoveryPalette::secondary(), this, 19)),
      kindLabel_(new TextLabel(recoveryFont(12, QFont::DemiBold), RecoveryPalette::muted(), this)),
      picker_(new SegmentedPicker(static_cast<int>(allRecoveryAppFactors.size()), this)),
      field_(new SecureField(this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(19, 19, 19, 19);
    layout->setSpacing(0);
    layout->addWidget(title_);
    layout->addSpacing(4);
    layout->addWidget(body_);
    layout->addSpacing(13);
    layout->addWidget(kindLabel_);
    layout->addSpacing(7);
    layout->addWidget(picker_);
    layout->addSpacing(10);
    layout->addWidget(field_);
}

void CredentialCard::apply(const ChooseBackupContent::Credential& content) {
    title_->setText(content.title);
    body_->setText(content.body);
    kindLabel_->setText(content.kindLabel);
    picker_->setAccessibleName(content.kindLabel);
    picker_->apply(content.factorLabels, content.chosenFactor);
    picker_->setEnabled(content.canEdit);
    field_->setPrompt(content.prompt);
    field_->setCapsLockHint(content.capsLockHint);
    field_->setEnabled(content.canEdit);
}
