#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotsContent.h"

#include <QWidget>

class ButtonRow;
class Card;
class Notice;
class PrimaryRecoveryButton;
class ProgressRow;
class SecondaryRecoveryButton;
class SnapshotList;
class TextLabel;

/// The screen on which a snapshot is picked and exported.
class SnapshotsScreen final : public QWidget {
    Q_OBJECT

public:
    explicit SnapshotsScreen(QWidget* parent = nullptr);

    void apply(const SnapshotsContent& content);

    SnapshotList* list() const { return list_; }
    PrimaryRecoveryButton* exportButton() const { return export_; }
    SecondaryRecoveryButton* chooseAnotherButton() const { return chooseAnother_; }
    QWidget* cancelButton() const;

private:
    void applyButtons(const SnapshotsContent& content);

    Notice* const forkNotice_;
    TextLabel* const title_;
    SnapshotList* const list_;
    Card* const empty_;
    TextLabel* const emptyText_;
    PrimaryRecoveryButton* const export_;
    SecondaryRecoveryButton* const chooseAnother_;
    ButtonRow* const buttons_;
    ProgressRow* const exporting_;
};
