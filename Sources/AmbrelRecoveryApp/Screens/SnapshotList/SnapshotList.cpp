#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"

#include "AmbrelRecoveryApp/Controls/FirstChoice.h"
#include "AmbrelRecoveryApp/Controls/QuietScrollBar.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowDelegate.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace {

/// Of two rows, so that the user sees that there is more than one.
constexpr int leastHeight = 158;

} // namespace

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
    setMinimumHeight(TextScale::scaled(leastHeight));
}

void SnapshotList::apply(const SnapshotRows& rows) {
    if (model_->rows() == rows) {
        return;
    }
    const QSignalBlocker blocker(this);
    model_->setRows(rows);
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

QModelIndex SnapshotList::indexAt(const QPoint& point) const {
    const QModelIndex index = QListView::indexAt(point);
    return SnapshotRowDelegate::rowRect(visualRect(index)).contains(point) ? index : QModelIndex();
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
    if (!selected.isEmpty()) {
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
