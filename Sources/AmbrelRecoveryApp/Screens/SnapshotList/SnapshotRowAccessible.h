#pragma once

#include <QAccessible>

class SnapshotList;

/// The accessible interface of a row of the snapshot list: a list item, named by one sentence, that can be pressed and
/// is checked while its snapshot is selected.
class SnapshotRowAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    /// `list` must outlive the row, which is deleted with the list's accessible interface.
    SnapshotRowAccessible(SnapshotList& list, int row);

    int row() const { return row_; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    QRect rectInViewport() const;

    SnapshotList& list_;
    const int row_;
};
