#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QListView>

class SnapshotListModel;

/// The list of snapshots. A row is chosen by click, arrow keys, Space or assistive technology; there is always at most
/// one, and a second click does not take it back. A row that is out of sight costs nothing.
class SnapshotList final : public QListView {
    Q_OBJECT

public:
    explicit SnapshotList(QWidget* parent = nullptr);

    /// Shows `rows` and marks the selected one. Emits nothing; the scroll position stays where the snapshots do.
    void apply(const SnapshotRows& rows);
    const SnapshotListModel& snapshotModel() const { return *model_; }

    /// Chooses a row as if the user had clicked it.
    void choose(int row);

    /// Only the rounded rows count, not the gaps between them.
    QModelIndex indexAt(const QPoint& point) const override;
    /// Searches nothing: typed letters would format every row.
    void keyboardSearch(const QString& /*search*/) override {}
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The user chose the snapshot in `row`.
    void chosen(int row);

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void followSelection();
    void announceCurrentRow();

    SnapshotListModel* const model_;
    bool isApplying_ = false;
};
