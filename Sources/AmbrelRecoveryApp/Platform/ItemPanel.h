#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryPanels.h"

#include <QFileDialog>

class QAbstractItemView;
class QItemSelectionModel;
class QLineEdit;
class QModelIndex;
class QPushButton;

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

    /// A panel that begins in `folder`, over `window`. `completion` is called once, when the panel is no longer shown,
    /// with an absolute path, or with none where the panel was dismissed or destroyed. The panel deletes itself then.
    ItemPanel(Purpose purpose, const Texts& texts, const QString& folder, RecoveryPanels::Completion completion,
              QWidget* window);
    ~ItemPanel() override;

    void done(int result) override;

protected:
    void accept() override;

private:
    void prepareModel();
    void prepareViews();
    void prepareView(QAbstractItemView& view);
    void prepareFileName();
    void prepareButtons(const QString& prompt);
    void nameWidgets();
    void hideWidgets();

    void activate(const QModelIndex& index);
    void nameSelectedItem();
    void takeNameChange(const QString& name);

    /// The item that the user named or selected, whichever was last; empty where there is none.
    QString requestedPath() const;
    QString selectedPath() const;
    QString typedPath() const;

    /// Whether the request is to go to `path` and not to take it.
    bool isPlaceToGo(const QString& path) const;
    void goTo(const QString& folder);
    void take(const QString& path);
    void complete(std::optional<std::filesystem::path> choice);

    const Purpose purpose_;
    const QString proposedName_;
    RecoveryPanels::Completion completion_;
    std::optional<std::filesystem::path> choice_;
    bool isNamingSelection_ = false;
    bool isItemLeaving_ = false;
    bool isNeighborSelected_ = false;
    QItemSelectionModel* selection_ = nullptr;
    QLineEdit* fileName_ = nullptr;
    QPushButton* acceptButton_ = nullptr;
};
