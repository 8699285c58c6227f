#pragma once

#include "AmbrelRecoveryApp/FilePanels/FolderModel.h"

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
    void reset() override;

signals:
    void itemActivated(const QModelIndex& index);
    void itemSelected();
    void upRequested();
    /// The user has started to type a path, not the name of an item; `beginning` is its first character.
    void pathTyped(const QString& beginning);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    QString message() const;
    void handleReset();
    void restore();

    FolderModel& model_;
    /// The names of the selected and the current item, to restore them after the folder is read again.
    std::string selectedName_;
    std::string currentName_;
    int scrollPlace_ = 0;
    bool isSlow_ = false;
    QTimer slowness_;
};
