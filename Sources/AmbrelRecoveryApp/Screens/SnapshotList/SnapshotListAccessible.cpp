#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListAccessible.h"

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowAccessible.h"

SnapshotListAccessible::SnapshotListAccessible(SnapshotList* list) : QAccessibleWidget(list, QAccessible::List) {}

SnapshotListAccessible::~SnapshotListAccessible() {
    for (const auto& [row, id] : rows_) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

SnapshotList& SnapshotListAccessible::list() const {
    return *static_cast<SnapshotList*>(widget());
}

int SnapshotListAccessible::childCount() const {
    return list().snapshotModel().rowCount();
}

QAccessibleInterface* SnapshotListAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    const auto known = rows_.find(index);
    if (known != rows_.end()) {
        return QAccessible::accessibleInterface(known->second);
    }
    auto* const row = new SnapshotRowAccessible(list(), index);
    rows_.emplace(index, QAccessible::registerAccessibleInterface(row));
    return row;
}

QAccessibleInterface* SnapshotListAccessible::childAt(int x, int y) const {
    const QPoint place = list().viewport()->mapFromGlobal(QPoint(x, y));
    return list().viewport()->rect().contains(place) ? child(list().indexAt(place).row()) : nullptr;
}

QAccessibleInterface* SnapshotListAccessible::focusChild() const {
    return list().hasFocus() ? child(list().currentIndex().row()) : nullptr;
}

int SnapshotListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    if (child == nullptr || child->parent() == nullptr || child->parent()->object() != &list()) {
        return -1;
    }
    return static_cast<const SnapshotRowAccessible*>(child)->row();
}

QAccessible::State SnapshotListAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.focusable = true;
    return state;
}
