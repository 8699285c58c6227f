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
class SecondaryRecoveryButton;
class SpaceView;
struct TypedItem;

/// A file panel in which the user names one item. A backup package is treated like a file: it can be chosen but never
/// entered, not even by a typed path or through a link. The caller decides whether the item must exist and what it may
/// be. Existing items cannot be changed, and nothing is stored on disk. Main thread; shown with open().
class ItemPanel final : public QDialog {
    Q_OBJECT

public:
    enum class Purpose { existingItem, newItem };

    /// Opens in `folder`, or in the home folder if `folder` cannot be read or, for a new item, not be written. For an
    /// existing item, only the title and the prompt of `request` are used. `completion` is called once, after the panel
    /// is closed, with an absolute path, or with std::nullopt if the panel was dismissed or destroyed. The panel then
    /// deletes itself.
    ItemPanel(Purpose purpose, const RecoveryPanels::SavePanel& request, const std::filesystem::path& folder,
              RecoveryPanels::Completion completion, QWidget* window);
    ~ItemPanel() override;

    /// The folder currently shown.
    const std::filesystem::path& folder() const;

    void accept() override;
    void done(int result) override;

private:
    void layOut();
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
    void complete();

    const Purpose purpose_;
    const QString proposedName_;
    RecoveryPanels::Completion completion_;
    /// std::nullopt until the panel is confirmed.
    std::optional<std::filesystem::path> choice_;
    bool isAtBeginning_ = true;
    bool isNamingSelection_ = false;
    /// Resolves the typed name, until another is typed or selected or the folder changes.
    LatestTask finding_;

    FolderModel* const files_;
    FolderView* const list_;
    PlacesView* const places_;
    PathBar* const path_;
    SecondaryRecoveryButton* const newFolder_;
    PanelNameField* const fileName_;
    /// Null unless a new item is named.
    SpaceView* const space_;
    SecondaryRecoveryButton* const cancel_;
    PrimaryRecoveryButton* const accept_;
};
