#pragma once

#include "AmbrelRecoveryApp/FilePanels/FolderModel.h"

#include <QStringList>
#include <QTimer>
#include <QTreeView>

/// The list of a folder's items, with single selection. Return and a double click activate an item; nothing can be
/// moved, renamed or deleted. An empty list shows a message with the reason.
class FolderView final : public QTreeView {
    Q_OBJECT

public:
    /// `model` must outlive the view.
    explicit FolderView(FolderModel& model, QWidget* parent = nullptr);

    /// The selected item's index in the first column; invalid if nothing is selected.
    QModelIndex selectedItem() const;

    void keyboardSearch(const QString& search) override;

signals:
    void itemActivated(const QModelIndex& index);
    void upRequested();
    /// The user has started to type a path, not the name of an item; `beginning` is its first character.
    void pathTyped(const QString& beginning);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void prepareHeader();
    void fitColumn(FolderModel::Column column, const QStringList& texts);
    QString message() const;
    void showMessage();

    FolderModel& model_;
    /// Runs while it is too early to show that the folder is loading.
    QTimer patience_;
};
