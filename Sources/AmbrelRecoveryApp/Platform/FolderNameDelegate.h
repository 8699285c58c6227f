#pragma once

#include <QStyledItemDelegate>

/// Lets the user name a folder that was just made. A name that no folder can have is dropped, and the folder keeps the
/// one it has: the toolkit's model would tell so in a box with an event loop of its own. Main thread.
class FolderNameDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};
