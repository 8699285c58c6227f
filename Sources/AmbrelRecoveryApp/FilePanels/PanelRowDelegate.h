#pragma once

#include <QStyledItemDelegate>

/// Draws the texts and symbols of the panels' lists in the application's dress. Main thread.
class PanelRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `symbolRole` is the role under which the model has the `RecoverySymbol` of an item, as an int.
    explicit PanelRowDelegate(int symbolRole, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Draws what lies behind a row of `list`: a tint where it is selected, a ring where the keyboard acts on it.
    static void paintRow(QPainter& painter, const QWidget& list, const QRect& row, bool isSelected, bool isCurrent);

private:
    const int symbolRole_;
};
