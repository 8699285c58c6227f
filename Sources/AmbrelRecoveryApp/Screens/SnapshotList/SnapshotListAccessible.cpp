#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListAccessible.h"

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotList.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotListModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowDelegate.h"

#include <QWindow>

namespace {

/// A row of the list: a list item, named by one sentence, that can be pressed and is checked while its snapshot is
/// selected. It is invalid while the list has fewer rows.
class SnapshotRowAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    SnapshotRowAccessible(SnapshotList& list, int row) : list_(list), row_(row) {}

    int row() const { return row_; }

    bool isValid() const override { return index().isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return list_.window()->windowHandle(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&list_); }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? list_.snapshotModel().content(index()).sentence() : QString();
    }

    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QRect rect() const override {
        const QRect place = placeInViewport();
        return isValid() ? QRect(list_.viewport()->mapToGlobal(place.topLeft()), place.size()) : QRect();
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const bool isSelected = list_.selectionModel()->isSelected(index());
        state.focusable = true;
        state.selectable = true;
        state.checkable = true;
        state.selected = isSelected;
        state.checked = isSelected;
        state.focused = list_.hasFocus() && list_.currentIndex() == index();
        state.invisible = !list_.isVisible();
        state.offscreen = !list_.viewport()->rect().intersects(placeInViewport());
        state.disabled = !list_.isEnabled();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }

    void doAction(const QString& name) override {
        if (!isValid() || !list_.isEnabled()) {
            return;
        }
        if (name == pressAction()) {
            list_.setCurrentIndex(index());
        } else if (name == setFocusAction()) {
            list_.selectionModel()->setCurrentIndex(index(), QItemSelectionModel::NoUpdate);
            list_.setFocus();
        }
    }

    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    QModelIndex index() const { return list_.snapshotModel().index(row_); }
    QRect placeInViewport() const { return SnapshotRowDelegate::rowRect(list_.visualRect(index())); }

    SnapshotList& list_;
    const int row_;
};

} // namespace

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
