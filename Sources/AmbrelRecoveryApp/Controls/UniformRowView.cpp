#include "AmbrelRecoveryApp/Controls/UniformRowView.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <limits>

namespace {

/// Of a list so long that its height is not a whole number of the toolkit's, the end cannot be scrolled to.
int withinInteger(qint64 value) {
    return static_cast<int>(
        std::clamp<qint64>(value, std::numeric_limits<int>::min() / 2, std::numeric_limits<int>::max() / 2));
}

} // namespace

UniformRowView::UniformRowView(QWidget* parent) : QAbstractItemView(parent) {
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

int UniformRowView::rowCount() const {
    return model() == nullptr ? 0 : model()->rowCount(rootIndex());
}

QModelIndex UniformRowView::indexOf(int row) const {
    return model() == nullptr ? QModelIndex() : model()->index(row, 0, rootIndex());
}

int UniformRowView::rowAt(int y) const {
    return static_cast<int>((qint64{verticalOffset()} + y) / rowHeight_);
}

int UniformRowView::rowsInAPage() const {
    return std::max(viewport()->height() / rowHeight_, 1);
}

QRect UniformRowView::visualRect(const QModelIndex& index) const {
    if (!index.isValid()) {
        return {};
    }
    const int top = withinInteger(qint64{index.row()} * rowHeight_ - verticalOffset());
    return {0, top, viewport()->width(), rowHeight_};
}

QModelIndex UniformRowView::indexAt(const QPoint& point) const {
    // Above and below the viewport, too: where the mouse is dragged there, the list scrolls and the choice follows.
    const bool isInList =
        point.x() >= 0 && point.x() < viewport()->width() && qint64{verticalOffset()} + point.y() >= 0;
    return isInList ? indexOf(rowAt(point.y())) : QModelIndex();
}

void UniformRowView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid()) {
        return;
    }
    const QRect row = visualRect(index);
    const int lowest = viewport()->height() - row.height();
    int top = row.top();
    switch (hint) {
    case EnsureVisible:
        // Of a row that is higher than the view, the top is shown.
        top = std::max(std::min(top, lowest), 0);
        break;
    case PositionAtTop:
        top = 0;
        break;
    case PositionAtBottom:
        top = lowest;
        break;
    case PositionAtCenter:
        top = lowest / 2;
        break;
    }
    verticalScrollBar()->setValue(verticalOffset() + row.top() - top);
}

void UniformRowView::reset() {
    QAbstractItemView::reset();
    doItemsLayout();
}

void UniformRowView::doItemsLayout() {
    rowHeight_ = std::max(sizeHintForIndex(indexOf(0)).height(), 1);
    QAbstractItemView::doItemsLayout();
}

void UniformRowView::updateGeometries() {
    QAbstractItemView::updateGeometries();
    QScrollBar& bar = *verticalScrollBar();
    bar.setSingleStep(rowHeight_);
    bar.setPageStep(viewport()->height());
    bar.setRange(0, std::max(withinInteger(qint64{rowCount()} * rowHeight_ - viewport()->height()), 0));
}

int UniformRowView::horizontalOffset() const {
    return 0;
}

int UniformRowView::verticalOffset() const {
    return verticalScrollBar()->value();
}

bool UniformRowView::isIndexHidden(const QModelIndex& /*index*/) const {
    return false;
}

QModelIndex UniformRowView::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/) {
    const int last = rowCount() - 1;
    if (!currentIndex().isValid()) {
        return indexOf(0);
    }
    int row = currentIndex().row();
    switch (action) {
    case MoveUp:
    case MovePrevious:
        row = std::max(row - 1, 0);
        break;
    case MoveDown:
    case MoveNext:
        row = std::min(row + 1, last);
        break;
    case MovePageUp:
        row = std::max(row - rowsInAPage(), 0);
        break;
    case MovePageDown:
        row = std::min(row + rowsInAPage(), last);
        break;
    case MoveHome:
        row = 0;
        break;
    case MoveEnd:
        row = last;
        break;
    case MoveLeft:
    case MoveRight:
        break;
    }
    return indexOf(row);
}

void UniformRowView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    // A rectangle that was dragged upwards ends above where it begins.
    const int first = std::max(rowAt(std::min(rect.top(), rect.bottom())), 0);
    const int last = std::min(rowAt(std::max(rect.top(), rect.bottom())), rowCount() - 1);
    QItemSelection rows;
    if (first <= last) {
        rows.select(indexOf(first), indexOf(last));
    }
    selectionModel()->select(rows, command);
}

QRegion UniformRowView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const QItemSelectionRange& range : selection) {
        region += visualRect(range.topLeft()).united(visualRect(range.bottomRight())) & viewport()->rect();
    }
    return region;
}

void UniformRowView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    QStyleOptionViewItem common;
    initViewItemOption(&common);
    const int last = std::min(rowAt(event->rect().bottom()), rowCount() - 1);
    for (int row = rowAt(event->rect().top()); row <= last; ++row) {
        const QModelIndex index = indexOf(row);
        QStyleOptionViewItem option = common;
        option.rect = visualRect(index);
        option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
        option.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
        itemDelegateForIndex(index)->paint(&painter, option, index);
    }
}
