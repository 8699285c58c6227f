#include "AmbrelRecoveryApp/Platform/FilePanels.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using Path = std::filesystem::path;

constexpr int generousMilliseconds = 60'000;

/// A window with file panels, whose home folder is a temporary one that holds one item of each kind.
class FilePanelsTest : public testing::Test {
protected:
    FilePanelsTest() {
        qputenv("HOME", QByteArray::fromStdString(home().native()));
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((root() / "configuration").native()));
        std::filesystem::create_directories(home() / "Family Photos.ambrel" / "inside");
        std::filesystem::create_directories(home() / "folder");
        std::ofstream(home() / "file.txt") << "x";
        panels = std::make_unique<FilePanels>(window.get());
        window->show();
    }

    Path root() const { return directory_.path().toStdString(); }
    Path home() const { return root() / "home"; }

    RecoveryPanels::Completion recording() {
        return [this](const std::optional<Path>& choice) { choices.push_back(choice); };
    }

    ItemPanel& openPanel() {
        panels->chooseBackup({"Choose backup package", "Choose backup package"}, recording());
        return *window->findChild<ItemPanel*>();
    }

    ItemPanel& savePanel() {
        panels->chooseDestination({"Choose where to export", "Export", "Ambrel Recovered"}, recording());
        return *window->findChild<ItemPanel*>();
    }

    static QLineEdit& nameField(ItemPanel& panel) { return *panel.findChild<QLineEdit*>("fileNameEdit"); }

    static void enterAndReturn(ItemPanel& panel, const QString& text) {
        nameField(panel).selectAll();
        nameField(panel).insert(text);
        QTest::keyClick(&nameField(panel), Qt::Key_Return);
    }

    static QPushButton* button(ItemPanel& panel, const QString& text) {
        for (auto* const candidate : panel.findChildren<QPushButton*>()) {
            if (candidate->text() == text && candidate->isVisible()) {
                return candidate;
            }
        }
        return nullptr;
    }

    /// The row of the list that shows this item, once the list shows it.
    static QModelIndex row(ItemPanel& panel, const Path& item) {
        auto& view = *panel.findChild<QTreeView*>("treeView");
        QModelIndex found;
        const bool isShown = QTest::qWaitFor(
            [&] {
                for (int number = 0; number < view.model()->rowCount(view.rootIndex()); ++number) {
                    const QModelIndex candidate = view.model()->index(number, 0, view.rootIndex());
                    if (candidate.data(QFileSystemModel::FilePathRole) == QString::fromStdString(item.native())) {
                        found = candidate;
                        return true;
                    }
                }
                return false;
            },
            generousMilliseconds);
        EXPECT_TRUE(isShown);
        return found;
    }

    static void activate(ItemPanel& panel, const Path& item) {
        auto* const view = panel.findChild<QTreeView*>("treeView");
        emit view->activated(row(panel, item));
    }

    void expectOneChoice(const std::optional<Path>& expected) {
        ASSERT_EQ(choices.size(), 1U);
        EXPECT_EQ(choices[0], expected);
    }

    std::vector<std::optional<Path>> choices;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    std::unique_ptr<FilePanels> panels;

private:
    QTemporaryDir directory_;
};

} // namespace

TEST_F(FilePanelsTest, areDialogsUnderTheirTitleWithTheRequestedButton) {
    ItemPanel& panel = openPanel();
    EXPECT_EQ(panel.windowTitle(), "Choose backup package");
    EXPECT_EQ(panel.accessibleName(), "Choose backup package");
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.windowModality(), Qt::WindowModal);
    EXPECT_NE(button(panel, "Choose backup package"), nullptr);
    EXPECT_NE(button(panel, AmbrelStrings::localized(AmbrelStrings::genericCancel())), nullptr);
    EXPECT_EQ(button(panel, "&Open"), nullptr);
}

TEST_F(FilePanelsTest, beginAtHomeAndThenWhereTheLastChoiceWas) {
    ItemPanel& first = openPanel();
    EXPECT_EQ(first.directory().path().toStdString(), home().native());
    enterAndReturn(first, QString::fromStdString((home() / "folder" / "x.ambrel").native()));
    QTest::qWait(0);
    ItemPanel& second = savePanel();
    EXPECT_EQ(second.directory().path().toStdString(), (home() / "folder").native());
}

TEST_F(FilePanelsTest, takeATypedPackageWithoutEnteringIt) {
    enterAndReturn(openPanel(), QString::fromStdString((home() / "Family Photos.ambrel").native()));
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(FilePanelsTest, takeATypedNameInTheFolderThatIsShown) {
    enterAndReturn(openPanel(), "Family Photos.ambrel");
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(FilePanelsTest, takeAPathFromTheHomeSign) {
    enterAndReturn(openPanel(), "~/file.txt");
    expectOneChoice(home() / "file.txt");
}

TEST_F(FilePanelsTest, takeAnyTypedPathForTheCallerToJudge) {
    for (const char* name : {"folder", "file.txt", "missing.ambrel"}) {
        choices.clear();
        enterAndReturn(openPanel(), QString::fromStdString((home() / name).native()));
        expectOneChoice(home() / name);
        QTest::qWait(0);
    }
}

TEST_F(FilePanelsTest, enterATypedFolderWithASeparatorAtItsEndAndGoUpwards) {
    ItemPanel& panel = openPanel();
    enterAndReturn(panel, "folder/");
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.directory().path().toStdString(), (home() / "folder").native());
    enterAndReturn(panel, "..");
    EXPECT_EQ(panel.directory().path().toStdString(), home().native());
    EXPECT_TRUE(choices.empty());
}

TEST_F(FilePanelsTest, takeAnActivatedPackageInAnyLetterCase) {
    std::filesystem::create_directory(home() / "Old.AMBREL");
    activate(openPanel(), home() / "Old.AMBREL");
    expectOneChoice(home() / "Old.AMBREL");
}

TEST_F(FilePanelsTest, takeAnActivatedFile) {
    activate(openPanel(), home() / "file.txt");
    expectOneChoice(home() / "file.txt");
}

TEST_F(FilePanelsTest, enterAnActivatedFolder) {
    ItemPanel& panel = openPanel();
    activate(panel, home() / "folder");
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.directory().path().toStdString(), (home() / "folder").native());
    EXPECT_TRUE(choices.empty());
}

TEST_F(FilePanelsTest, takeTheSelectedItemWithTheButton) {
    ItemPanel& panel = openPanel();
    EXPECT_FALSE(button(panel, "Choose backup package")->isEnabled());
    panel.findChild<QTreeView*>("treeView")->setCurrentIndex(row(panel, home() / "Family Photos.ambrel"));
    ASSERT_TRUE(button(panel, "Choose backup package")->isEnabled());
    button(panel, "Choose backup package")->click();
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(FilePanelsTest, proposeANameForANewItemAndTakeItWithReturn) {
    ItemPanel& panel = savePanel();
    EXPECT_EQ(nameField(panel).text(), "Ambrel Recovered");
    EXPECT_EQ(nameField(panel).selectedText(), "Ambrel Recovered");
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
    expectOneChoice(home() / "Ambrel Recovered");
    EXPECT_FALSE(std::filesystem::exists(home() / "Ambrel Recovered"));
}

TEST_F(FilePanelsTest, takeTheNameOfAnExistingFolderWithoutEnteringItOrAsking) {
    std::filesystem::create_directory(home() / "Ambrel Recovered");
    ItemPanel& panel = savePanel();
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
    expectOneChoice(home() / "Ambrel Recovered");
}

TEST_F(FilePanelsTest, takeNamesAsTheyAre) {
    for (const char* name : {"two  spaces ", "a.b.", "-leading", "100 %", "Ünïcödé 写真", "a&b", "name.png"}) {
        choices.clear();
        enterAndReturn(savePanel(), QString::fromUtf8(name));
        expectOneChoice(home() / name);
        QTest::qWait(0);
    }
}

TEST_F(FilePanelsTest, completeWithNoneWhenDismissedByEscape) {
    QTest::keyClick(&openPanel(), Qt::Key_Escape);
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, completeWithNoneWhenClosed) {
    openPanel().close();
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, completeWithNoneByTheCancelButton) {
    button(openPanel(), AmbrelStrings::localized(AmbrelStrings::genericCancel()))->click();
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, completeWithNoneWhenTheWindowGoesAway) {
    openPanel();
    window.reset();
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, completeWithNoneWhenTheyGoAwayThemselves) {
    openPanel();
    panels.reset();
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, areOpenOneAtATime) {
    ItemPanel& panel = openPanel();
    panels->chooseDestination({"title", "prompt", "name"}, recording());
    expectOneChoice(std::nullopt);
    EXPECT_EQ(window->findChildren<ItemPanel*>().size(), 1);
    choices.clear();
    enterAndReturn(panel, "file.txt");
    expectOneChoice(home() / "file.txt");
}

TEST_F(FilePanelsTest, offerNewFoldersOnlyForANewItem) {
    EXPECT_FALSE(openPanel().findChild<QWidget*>("newFolderButton")->isEnabled());
    window->findChild<ItemPanel*>()->close();
    QTest::qWait(0);
    EXPECT_TRUE(savePanel().findChild<QWidget*>("newFolderButton")->isEnabled());
}

TEST_F(FilePanelsTest, rememberNothingOnDisk) {
    enterAndReturn(openPanel(), "file.txt");
    QTest::qWait(0);
    window.reset();
    EXPECT_FALSE(std::filesystem::exists(root() / "configuration"));
    EXPECT_FALSE(std::filesystem::exists(home() / ".config"));
    EXPECT_FALSE(std::filesystem::exists(home() / ".local"));
}
