#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"

#include "AmbrelRecoveryApp/Controls/FirstChoice.h"
#include "AmbrelRecoveryApp/Controls/QuietScrollBar.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowDelegate.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QScopedValueRollback>

SnapshotList::SnapshotList(QWidget* parent) : QListView(parent), model_(new SnapshotListModel(this)) {
    setModel(model_);
    setItemDelegate(new SnapshotRowDelegate(this));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBar(new QuietScrollBar(this));
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setAutoFillBackground(false);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

void SnapshotList::apply(const SnapshotRows& rows) {
    const SnapshotRows& shown = model_->rows();
    if (shown == rows) {
        return;
    }
    const QScopedValueRollback applying(isApplying_, true);
    const bool isInOtherWords = shown.locale != rows.locale || shown.itemsLabel != rows.itemsLabel;
    model_->setRows(rows);
    if (isInOtherWords) {
        doItemsLayout();
    }
    followSelection();
    viewport()->update();
}

/// If two snapshots have the same code, the user's current row is kept.
void SnapshotList::followSelection() {
    const SnapshotRows& rows = model_->rows();
    const QModelIndex current = currentIndex();
    if (current.isValid() && rows.selectedCode &&
        rows.snapshots->at(static_cast<std::size_t>(current.row())).selectionCode == *rows.selectedCode) {
        selectionModel()->select(current, QItemSelectionModel::ClearAndSelect);
    } else if (const std::optional<std::size_t> row = rows.selectedRow()) {
        setCurrentIndex(model_->index(static_cast<int>(*row)));
    } else {
        clearSelection();
        // Qt sets a current row only for the first snapshots that the list is given.
        if (!current.isValid()) {
            selectionModel()->setCurrentIndex(model_->index(0), QItemSelectionModel::NoUpdate);
        }
    }
}

void SnapshotList::choose(int row) {
    const QModelIndex index = model_->index(row);
    if (selectionModel()->isSelected(index)) {
        emit chosen(row);
    } else {
        setCurrentIndex(index);
    }
}

QModelIndex SnapshotList::indexAt(const QPoint& point) const {
    const QModelIndex index = QListView::indexAt(point);
    return SnapshotRowDelegate::rowRect(visualRect(index)).contains(point) ? index : QModelIndex();
}

QSize SnapshotList::sizeHint() const {
    return minimumSizeHint();
}

QSize SnapshotList::minimumSizeHint() const {
    // Two rows, so that the user sees that there is more than one.
    constexpr int leastHeight = 158;
    return {0, TextScale::scaled(leastHeight)};
}

void SnapshotList::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) {
        scheduleDelayedItemsLayout();
    }
}

void SnapshotList::focusInEvent(QFocusEvent* event) {
    QListView::focusInEvent(event);
    // After Qt's event for the list as a whole, because the row is what the user wants to hear.
    QMetaObject::invokeMethod(
        this, [this] { announceCurrentRow(); }, Qt::QueuedConnection);
}

void SnapshotList::keyPressEvent(QKeyEvent* event) {
    if (!FirstChoice::select(*this, *event)) {
        QListView::keyPressEvent(event);
    }
}

QItemSelectionModel::SelectionFlags SnapshotList::selectionCommand(const QModelIndex& index,
                                                                   const QEvent* /*event*/) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void SnapshotList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (!isApplying_ && !selected.isEmpty()) {
        emit chosen(selected.indexes().constFirst().row());
    }
}

void SnapshotList::announceCurrentRow() {
    if (hasFocus() && currentIndex().isValid()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(currentIndex().row());
        QAccessible::updateAccessibility(&event);
    }
}
