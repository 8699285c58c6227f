#pragma once

#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"
#include "AmbrelRecoveryApp/Model/RecoveryPanels.h"

#include <QDialog>

class FolderModel;
class FolderView;
class PanelNameField;
class PathBar;
class PlacesView;
class PrimaryRecoveryButton;
class QBoxLayout;
class SecondaryRecoveryButton;
class SpaceView;
struct TypedItem;

/// A file panel in which the user names one item. A backup package is an item like a file: it is taken and never
/// entered, not by a typed path or through a link either. Whether the item exists, and what it is, is for the caller to
/// judge. Nothing that exists can be changed in it, and nothing is remembered on disk. Main thread; shown with open().
class ItemPanel final : public QDialog {
    Q_OBJECT

public:
    enum class Purpose { existingItem, newItem };

    struct Request {
        QString title;
        /// The label of the button that confirms.
        QString prompt;
        /// What follows is of use for a new item only.
        QString proposedName;
        /// How many bytes will be written; none where it is not known.
        std::optional<std::uint64_t> requiredByteCount;
    };

    /// A panel that begins in `folder`, or at home where that cannot be read, or not be written for a new item.
    /// `completion` is called once, when the panel is no longer shown, with an absolute path, or with none where the
    /// panel was dismissed or destroyed. The panel deletes itself then.
    ItemPanel(Purpose purpose, const Request& request, const std::filesystem::path& folder,
              RecoveryPanels::Completion completion, QWidget* window);
    ~ItemPanel() override;

    /// The folder that is shown.
    const std::filesystem::path& folder() const;

    void accept() override;
    void done(int result) override;

private:
    void layOut();
    QBoxLayout* pathRow();
    QBoxLayout* nameRow();
    QBoxLayout* buttonRow();
    QWidget* sidebar();
    void connectParts();
    void addShortcuts();

    void activate(const QModelIndex& index);
    void nameSelectedItem();
    void handleNameChange();
    void beginPath(const QString& beginning);
    void handleReading();
    void makeFolder();

    void findTyped();
    void chooseTyped(const TypedItem& item);

    void showFolder(const std::filesystem::path& folder);
    void showSpace();
    void choose(const std::filesystem::path& path);
    void complete(std::optional<std::filesystem::path> choice);

    const Purpose purpose_;
    const QString proposedName_;
    RecoveryPanels::Completion completion_;
    std::optional<std::filesystem::path> choice_;
    bool isAtBeginning_ = true;
    bool isNamingSelection_ = false;
    /// Finds out what the typed name stands for, until another is typed, selected or gone to.
    LatestTask finding_;

    FolderModel* const files_;
    FolderView* const list_;
    PlacesView* const places_;
    PathBar* const path_;
    SecondaryRecoveryButton* const newFolder_;
    PanelNameField* const fileName_;
    /// Null where no new item is named.
    SpaceView* const space_;
    SecondaryRecoveryButton* const cancel_;
    PrimaryRecoveryButton* const accept_;
};
