#include "AmbrelRecoveryApp/Screens/SnapshotsScreen.h"

#include "AmbrelRecoveryApp/Controls/Notice.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/Controls/ProgressRow.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/ShownPart.h"
#include "AmbrelRecoveryApp/Controls/TextLabel.h"
#include "AmbrelRecoveryApp/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/TrailingInset.h"

#include <QHBoxLayout>

SnapshotsScreen::SnapshotsScreen(QWidget* parent)
    : QWidget(parent), forkNotice_(new Notice(RecoverySymbol::exclamationmarkTriangleFill, this)),
      title_(new TextLabel(recoveryFont(21, QFont::DemiBold), RecoveryPalette::primary(), this)),
      list_(new SnapshotList(this)), export_(new PrimaryRecoveryButton(RecoverySymbol::squareAndArrowDown, this)),
      exporting_(new ProgressRow(this)) {
    // As high as the button whose place it takes.
    exporting_->setMinimumHeight(export_->sizeHint().height());

    auto* const titledList = new QVBoxLayout;
    titledList->setSpacing(11);
    titledList->addLayout(withTrailingInset(title_));
    titledList->addWidget(list_, 1);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    layout->addLayout(withTrailingInset(forkNotice_));
    layout->addLayout(titledList, 1);
    layout->addWidget(export_, 0, Qt::AlignLeading);
    layout->addLayout(withTrailingInset(exporting_));

    connect(list_, &SnapshotList::chosen, this, &SnapshotsScreen::snapshotChosen);
    connect(export_, &PrimaryRecoveryButton::clicked, this, &SnapshotsScreen::exportRequested);
    connect(exporting_, &ProgressRow::cancelled, this, &SnapshotsScreen::cancelRequested);
}

void SnapshotsScreen::apply(const SnapshotsContent& content) {
    if (content.forkNotice) {
        forkNotice_->apply(*content.forkNotice);
    }
    forkNotice_->setVisible(content.forkNotice.has_value());
    title_->setText(content.title);
    list_->setAccessibleName(content.title);
    list_->apply(content.rows);
    list_->setEnabled(!content.exporting);
    if (content.exporting) {
        exporting_->apply(*content.exporting);
    }
    ShownPart::setShown(exporting_, content.exporting.has_value());
    export_->setLabel(content.exportLabel);
    export_->setVisible(!content.exporting);
    export_->setEnabled(content.canExport);
}

QWidget* SnapshotsScreen::cancelButton() const {
    return exporting_->cancelButton();
}
