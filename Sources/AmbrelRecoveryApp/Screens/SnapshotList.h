#pragma once

#include "AmbrelRecoveryApp/Controls/UniformRowView.h"
#include "AmbrelRecoveryApp/Screens/SnapshotRows.h"

#include <QAccessible>

class SnapshotListModel;

/// The list of snapshots. A row is chosen by click, arrow keys, Space or assistive technology; there is always at most
/// one, and a second click does not take it back. A row that is out of sight costs nothing.
class SnapshotList final : public UniformRowView {
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
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The user chose the snapshot in `row`.
    void chosen(int row);

protected:
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void followSelection();
    void tellFocus();
    void tellAccessibility(QAccessible::Event kind, const QModelIndex& index);

    SnapshotListModel* const model_;
    bool isApplying_ = false;
};
