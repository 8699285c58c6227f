#pragma once

#include <QStyledItemDelegate>

/// Draws the texts and symbols of the panels' lists in the application's style. Main thread.
class PanelRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `symbolRole` is the model's role for the `RecoverySymbol` of an item, stored as an int.
    explicit PanelRowDelegate(int symbolRole, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Draws the background of a row of `list`: a tint if it is selected, a ring if it has the keyboard focus.
    static void paintRow(QPainter& painter, const QWidget& list, const QRect& row, bool isSelected, bool isCurrent);

private:
    const int symbolRole_;
};
