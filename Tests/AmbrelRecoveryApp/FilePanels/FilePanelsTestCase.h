#pragma once

#include "AmbrelRecoveryApp/FilePanels/FilePanels.h"

#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

class FolderView;
class QLineEdit;
class QModelIndex;
class QPushButton;

/// A window with file panels, whose home folder is a temporary one that holds one item of each kind: the package
/// "Family Photos.ambrel", the folder "folder" and the file "file.txt".
class FilePanelsTest : public testing::Test {
protected:
    using Path = std::filesystem::path;

    FilePanelsTest();

    Path root() const { return directory_.path().toStdString(); }
    Path home() const { return root() / "home"; }

    RecoveryPanels::Completion recording();
    ItemPanel& openPanel();
    ItemPanel& savePanel(std::optional<std::uint64_t> requiredByteCount = std::nullopt);

    static FolderView& list(ItemPanel& panel);
    static QLineEdit& nameField(ItemPanel& panel);
    /// The visible button of this label; none where there is none.
    static QPushButton* button(ItemPanel& panel, const QString& text);
    static QPushButton& openButton(ItemPanel& panel) { return *button(panel, "Choose backup package"); }
    static QPushButton& exportButton(ItemPanel& panel) { return *button(panel, "Export"); }

    static void enterAndReturn(ItemPanel& panel, const QString& text);
    static void enterAndReturn(ItemPanel& panel, const Path& path);

    /// The row of the list that shows the item of this name; invalid if none does.
    static QModelIndex shownRow(const ItemPanel& panel, const std::string& name);
    /// The row of the list that shows this item, once the list shows it.
    static QModelIndex row(ItemPanel& panel, const Path& item);
    static void select(ItemPanel& panel, const Path& item);
    static void doubleClick(ItemPanel& panel, const Path& item);

    /// Waits until the panel goes to this folder, which may not answer.
    static void waitUntilAt(ItemPanel& panel, const Path& folder);
    /// Waits until the panel shows this folder and what is in it.
    static void waitForFolder(ItemPanel& panel, const Path& folder);
    /// Waits until no work runs in the background, and what it brought has been taken.
    static void waitForBackground();
    static Path shownFolder(ItemPanel& panel) { return panel.folder(); }

    /// Waits for a choice, and expects no other.
    void expectOneChoice(const std::optional<Path>& expected);

    // A panel that is still open at the end completes, too.
    std::vector<std::optional<Path>> choices;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    std::unique_ptr<FilePanels> panels;

private:
    QTemporaryDir directory_;
};
