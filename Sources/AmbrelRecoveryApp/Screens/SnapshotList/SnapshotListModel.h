#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QAbstractListModel>
#include <QCache>

/// The rows of the snapshot list for Qt's views. Nothing is copied or formatted in advance.
class SnapshotListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Sets the rows. Resets the model only if the snapshots are different ones.
    void setRows(const SnapshotRows& rows);
    const SnapshotRows& rows() const { return rows_; }
    /// The formatted content of a row. The most recently requested rows are cached.
    SnapshotRowContent content(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    SnapshotRows rows_;
    mutable QCache<int, SnapshotRowContent> contents_{64};
};
