#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QAbstractListModel>
#include <QCache>

/// The rows of the snapshot list for Qt's views. Nothing is copied or put into words beforehand.
class SnapshotListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Shows `rows`. Resets the model only where the snapshots are others than before.
    void setRows(const SnapshotRows& rows);
    const SnapshotRows& rows() const { return rows_; }
    /// The words of a row. Those of the last rows that were asked for are kept.
    SnapshotRowContent content(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    SnapshotRows rows_;
    mutable QCache<int, SnapshotRowContent> contents_{64};
};
