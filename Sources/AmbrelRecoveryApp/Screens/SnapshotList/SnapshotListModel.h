#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <QAbstractListModel>

/// The rows of the snapshot list for Qt's views. Nothing is copied or formatted in advance.
class SnapshotListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Sets the rows. Resets the model unless only another row is selected.
    void setRows(const SnapshotRows& rows);
    const SnapshotRows& rows() const { return rows_; }
    /// The content of a row, formatted anew.
    SnapshotRowContent content(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    /// Returns nothing: the view and assistive technology use content().
    QVariant data(const QModelIndex& /*index*/, int /*role*/) const override { return {}; }

private:
    SnapshotRows rows_;
};
