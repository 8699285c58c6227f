#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryPanels.h"

#include <QFileDialog>

class QAbstractItemView;
class QLineEdit;
class QModelIndex;

/// A file panel in which the user names one item. A backup package is an item like a file: it is taken and never
/// entered. Whether the item exists, and what it is, is for the caller to judge. Nothing is remembered on disk.
/// Main thread; shown with open().
class ItemPanel final : public QFileDialog {
    Q_OBJECT

public:
    enum class Purpose { existingItem, newItem };

    struct Texts {
        QString title;
        /// The label of the button that confirms.
        QString prompt;
        QString proposedName;
    };

    /// A panel that begins in `folder`, over `window`. `completion` is called once, with none where the panel is
    /// dismissed or destroyed.
    ItemPanel(Purpose purpose, const Texts& texts, const QString& folder, RecoveryPanels::Completion completion,
              QWidget* window);
    ~ItemPanel() override;

protected:
    void accept() override;

private:
    void prepareFileName(const QString& proposedName);
    void prepareButtons(const QString& prompt);
    void prepareViews();
    void nameWidgets();
    void activate(QAbstractItemView& view, const QModelIndex& index);
    void showName(QAbstractItemView& view, const QModelIndex& index);
    bool enterTypedFolder(const QString& path);
    void complete(std::optional<std::filesystem::path> choice);

    const Purpose purpose_;
    RecoveryPanels::Completion completion_;
    QLineEdit* fileName_ = nullptr;
};
