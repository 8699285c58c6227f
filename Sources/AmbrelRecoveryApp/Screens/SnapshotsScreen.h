#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotsContent.h"

#include <QWidget>

class Notice;
class PrimaryRecoveryButton;
class ProgressRow;
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
    QWidget* cancelButton() const;

signals:
    /// The user chose the snapshot in `row`.
    void snapshotChosen(int row);
    void exportRequested();
    void cancelRequested();

private:
    Notice* const forkNotice_;
    TextLabel* const title_;
    SnapshotList* const list_;
    PrimaryRecoveryButton* const export_;
    ProgressRow* const exporting_;
};
