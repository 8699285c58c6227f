#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QListView>

class SnapshotListModel;

/// The list of snapshots. A row is selected by click, arrow keys, Space or assistive technology. At most one is
/// selected, and a second click does not deselect it. Rows that are out of sight cost nothing.
class SnapshotList final : public QListView {
    Q_OBJECT

public:
    explicit SnapshotList(QWidget* parent = nullptr);

    /// Shows `rows` and marks the selected one. Emits nothing. The scroll position is kept if only the selection
    /// changes.
    void apply(const SnapshotRows& rows);
    const SnapshotListModel& snapshotModel() const { return *model_; }

    /// Ignores the gaps between the rows.
    QModelIndex indexAt(const QPoint& point) const override;
    /// Disabled: a search would format every row.
    void keyboardSearch(const QString& /*search*/) override {}
    /// No higher than necessary, so that the list scrolls before the screen does.
    QSize sizeHint() const override { return minimumSize(); }

signals:
    /// The user chose the snapshot in `row`.
    void chosen(int row);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void followSelection();
    void announceCurrentRow();

    SnapshotListModel* const model_;
};
