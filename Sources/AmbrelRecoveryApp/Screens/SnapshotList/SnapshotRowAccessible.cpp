#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowAccessible.h"

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowDelegate.h"

#include <QWindow>

SnapshotRowAccessible::SnapshotRowAccessible(SnapshotList& list, int row) : list_(list), row_(row) {}

bool SnapshotRowAccessible::isValid() const {
    return row_ < list_.snapshotModel().rowCount();
}

QWindow* SnapshotRowAccessible::window() const {
    return list_.window()->windowHandle();
}

QAccessibleInterface* SnapshotRowAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(&list_);
}

QString SnapshotRowAccessible::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || !isValid()) {
        return {};
    }
    return list_.snapshotModel().index(row_).data(Qt::AccessibleTextRole).toString();
}

QRect SnapshotRowAccessible::rectInViewport() const {
    return SnapshotRowDelegate::rowRect(list_.visualRect(list_.snapshotModel().index(row_)));
}

QRect SnapshotRowAccessible::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect place = rectInViewport();
    return {list_.viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State SnapshotRowAccessible::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QModelIndex index = list_.snapshotModel().index(row_);
    const bool isSelected = list_.selectionModel()->isSelected(index);
    state.focusable = true;
    state.selectable = true;
    state.checkable = true;
    state.selected = isSelected;
    state.checked = isSelected;
    state.focused = list_.hasFocus() && list_.currentIndex() == index;
    state.invisible = !list_.isVisible();
    state.offscreen = !list_.viewport()->rect().intersects(rectInViewport());
    state.disabled = !list_.isEnabled();
    return state;
}

void* SnapshotRowAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList SnapshotRowAccessible::actionNames() const {
    return {pressAction(), setFocusAction()};
}

void SnapshotRowAccessible::doAction(const QString& name) {
    if (!isValid() || !list_.isEnabled()) {
        return;
    }
    if (name == pressAction()) {
        list_.choose(row_);
    } else if (name == setFocusAction()) {
        list_.selectionModel()->setCurrentIndex(list_.snapshotModel().index(row_), QItemSelectionModel::NoUpdate);
        list_.setFocus();
    }
}
