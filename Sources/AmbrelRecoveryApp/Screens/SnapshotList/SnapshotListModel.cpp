#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"

void SnapshotListModel::setRows(const SnapshotRows& rows) {
    SnapshotRows shown = rows_;
    shown.selectedCode = rows.selectedCode;
    if (shown == rows) {
        rows_ = rows;
        return;
    }
    beginResetModel();
    rows_ = rows;
    endResetModel();
}

SnapshotRowContent SnapshotListModel::content(const QModelIndex& index) const {
    return rows_.row(static_cast<std::size_t>(index.row()));
}

int SnapshotListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.count());
}
