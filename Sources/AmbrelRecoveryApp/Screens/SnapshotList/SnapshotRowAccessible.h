#pragma once

#include <QAccessible>

class SnapshotList;

/// A row of the snapshot list as assistive technology meets it: a list item named by one sentence, which can be pressed
/// and is checked while its snapshot is the selected one.
class SnapshotRowAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    /// `list` outlives its rows: they go with its own accessible object.
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
