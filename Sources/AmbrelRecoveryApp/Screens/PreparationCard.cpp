#include "AmbrelRecoveryApp/Screens/PreparationCard.h"

#include "AmbrelRecoveryApp/Controls/ProgressRow.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"

#include <QVBoxLayout>

PreparationCard::PreparationCard(QWidget* parent)
    : Card(parent), title_(new TextLabel(recoveryFont(15, QFont::DemiBold), RecoveryPalette::primary(), this)),
      body_(new TextLabel(recoveryFont(12, QFont::Normal), RecoveryPalette::muted(), this, 17)),
      progress_(new ProgressRow(this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(19, 19, 19, 19);
    layout->setSpacing(4);
    layout->addWidget(title_);
    layout->addWidget(body_);
    layout->addSpacing(3);
    layout->addWidget(progress_);
}

void PreparationCard::apply(const ChooseBackupContent::Preparation& content) {
    title_->setText(content.title);
    body_->setText(content.body);
    progress_->apply(content.progress);
}

QWidget* PreparationCard::cancelButton() const {
    return progress_->cancelButton();
}
