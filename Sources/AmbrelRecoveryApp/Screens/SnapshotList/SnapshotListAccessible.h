#pragma once

#include <QAccessibleWidget>

#include <map>

class SnapshotList;

/// The accessible interface of the snapshot list. Its rows are created on demand.
class SnapshotListAccessible final : public QAccessibleWidget {
public:
    explicit SnapshotListAccessible(SnapshotList* list);
    ~SnapshotListAccessible() override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    SnapshotList& list() const;

    mutable std::map<int, QAccessible::Id> rows_;
};
