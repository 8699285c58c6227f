#pragma once

#include <QAbstractItemView>

/// A list whose rows are all as high as the first one and as wide as the view. Where a row stands is reckoned from its
/// number, so that any number of rows costs what the visible ones cost. Scrolls by pixels. Takes models that change
/// their rows only by a reset. Tells assistive technology nothing of single rows.
class UniformRowView : public QAbstractItemView {
    Q_OBJECT

public:
    explicit UniformRowView(QWidget* parent = nullptr);

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& point) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    /// Types nothing: to look for letters, all rows would have to be put into words.
    void keyboardSearch(const QString& /*search*/) override {}
    void reset() override;
    void doItemsLayout() override;

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex& index) const override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void updateGeometries() override;
    void paintEvent(QPaintEvent* event) override;

private:
    int rowCount() const;
    /// Invalid where there is no such row.
    QModelIndex indexOf(int row) const;
    /// The number that the row at this height of the viewport has or would have.
    int rowAt(int y) const;
    int rowsInAPage() const;

    /// In device-independent pixels; at least 1.
    int rowHeight_ = 1;
};
