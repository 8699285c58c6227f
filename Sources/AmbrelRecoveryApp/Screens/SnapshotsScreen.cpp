#include "AmbrelRecoveryApp/Screens/SnapshotsScreen.h"

#include "AmbrelRecoveryApp/Controls/Card.h"
#include "AmbrelRecoveryApp/Controls/Notice.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/ProgressRow.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/ShownPart.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/Screens/ButtonRow.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/TrailingInset.h"

#include <QHBoxLayout>

SnapshotsScreen::SnapshotsScreen(QWidget* parent)
    : QWidget(parent), forkNotice_(new Notice(RecoverySymbol::exclamationmarkTriangleFill, this)),
      title_(new TextLabel(recoveryFont(21, QFont::DemiBold), RecoveryPalette::primary(), this)),
      list_(new SnapshotList(this)), empty_(new Card(this)),
      emptyText_(new TextLabel(recoveryFont(13, QFont::Normal), RecoveryPalette::secondary(), empty_, 19)),
      export_(new PrimaryRecoveryButton(RecoverySymbol::squareAndArrowDown, this)),
      chooseAnother_(new SecondaryRecoveryButton(std::nullopt, this)),
      buttons_(new ButtonRow({export_, chooseAnother_}, this)), exporting_(new ProgressRow(this)) {
    chooseAnother_->setButtonHeight(export_->sizeHint().height());
    // As high as the buttons that it replaces.
    exporting_->setMinimumHeight(export_->sizeHint().height());
    auto* const emptyLayout = new QVBoxLayout(empty_);
    emptyLayout->setContentsMargins(19, 19, 19, 19);
    emptyLayout->addWidget(emptyText_);

    auto* const titledList = new QVBoxLayout;
    titledList->setSpacing(11);
    titledList->addLayout(withTrailingInset(title_));
    titledList->addWidget(list_, 1);
    titledList->addLayout(withTrailingInset(empty_));
    titledList->addStretch();

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    layout->addLayout(withTrailingInset(forkNotice_));
    layout->addLayout(titledList, 1);
    layout->addLayout(withTrailingInset(buttons_));
    layout->addLayout(withTrailingInset(exporting_));
}

void SnapshotsScreen::apply(const SnapshotsContent& content) {
    if (content.forkNotice) {
        forkNotice_->apply(*content.forkNotice);
    }
    forkNotice_->setVisible(content.forkNotice.has_value());
    title_->setText(content.title);
    applyButtons(content);
    list_->setAccessibleName(content.title);
    list_->apply(content.rows);
    list_->setVisible(!content.emptyText);
    list_->setEnabled(!content.exporting);
    empty_->setVisible(content.emptyText.has_value());
    emptyText_->setText(content.emptyText.value_or(QString()));
}

void SnapshotsScreen::applyButtons(const SnapshotsContent& content) {
    if (content.exporting) {
        exporting_->apply(*content.exporting);
    }
    ShownPart::setShown(exporting_, content.exporting.has_value());
    export_->setLabel(content.exportLabel);
    export_->setEnabled(content.canExport);
    chooseAnother_->setLabel(content.chooseAnotherLabel);
    ShownPart::setShown(buttons_, !content.exporting);
}

QWidget* SnapshotsScreen::cancelButton() const {
    return exporting_->cancelButton();
}
