#pragma once

#include <QAbstractItemDelegate>

/// Draws the rows of the snapshot list. Every row is as high as the first one, with a gap below it.
class SnapshotRowDelegate final : public QAbstractItemDelegate {
    Q_OBJECT

public:
    using QAbstractItemDelegate::QAbstractItemDelegate;

    /// Returns the row itself, without the gap below it; `item` is the rectangle of the whole item.
    static QRect rowRect(const QRect& item);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
