#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"

#include <algorithm>
#include <limits>

void SnapshotListModel::setRows(const SnapshotRows& rows) {
    contents_.clear();
    if (rows_.snapshots == rows.snapshots) {
        rows_ = rows;
        return;
    }
    beginResetModel();
    rows_ = rows;
    endResetModel();
}

SnapshotRowContent SnapshotListModel::content(const QModelIndex& index) const {
    if (const SnapshotRowContent* const known = contents_.object(index.row())) {
        return *known;
    }
    SnapshotRowContent content = rows_.row(static_cast<std::size_t>(index.row()));
    contents_.insert(index.row(), new SnapshotRowContent(content));
    return content;
}

int SnapshotListModel::rowCount(const QModelIndex& parent) const {
    constexpr std::size_t most = std::numeric_limits<int>::max();
    return parent.isValid() ? 0 : static_cast<int>(std::min(rows_.count(), most));
}

QVariant SnapshotListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return content(index).date;
    case Qt::AccessibleTextRole:
        return content(index).sentence();
    default:
        return {};
    }
}
