#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "AmbrelRecoveryApp/FilePanels/PathBar.h"
#include "AmbrelRecoveryApp/FilePanels/PlacesView.h"
#include "FilePanelsTestCase.h"

#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int generousMilliseconds = 60'000;

/// The list and the places of a panel.
class PanelListTest : public FilePanelsTest {
protected:
    static FolderModel& files(ItemPanel& panel) { return *panel.findChild<FolderModel*>(); }
    static PlacesView& places(ItemPanel& panel) { return *panel.findChild<PlacesView*>(); }

    static bool waitForState(ItemPanel& panel, FolderModel::State state) {
        return QTest::qWaitFor([&] { return files(panel).state() == state; }, generousMilliseconds);
    }

    static std::vector<Path> placesOf(ItemPanel& panel) {
        std::vector<Path> paths;
        for (int row = 0; row < places(panel).count(); ++row) {
            paths.push_back(places(panel).path(row));
        }
        return paths;
    }
};

} // namespace

TEST_F(PanelListTest, isNavigatedByKeyboard) {
    ItemPanel& panel = openPanel();
    waitForFolder(panel, home());
    EXPECT_TRUE(list(panel).hasFocus() || panel.focusWidget() == &list(panel));
    QTest::keyClick(&list(panel), Qt::Key_Down);
    QTest::keyClick(&list(panel), Qt::Key_Return);
    waitForFolder(panel, home() / "folder");
    QTest::keyClick(&list(panel), Qt::Key_Backspace);
    waitForFolder(panel, home());
    QTest::keyClicks(&list(panel), "fam");
    EXPECT_EQ(nameField(panel).text(), "Family Photos.ambrel");
    QTest::keyClick(&list(panel), Qt::Key_Return);
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(PanelListTest, movesTheFocusToTheNameFieldForATypedPath) {
    ItemPanel& panel = openPanel();
    waitForFolder(panel, home());
    QTest::keyClick(&list(panel), Qt::Key_Slash);
    EXPECT_EQ(panel.focusWidget(), &nameField(panel));
    QTest::keyClicks(&nameField(panel), "tmp");
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
    expectOneChoice("/tmp");
}

TEST_F(PanelListTest, goesUpAndBackWithTheButtons) {
    ItemPanel& panel = openPanel();
    doubleClick(panel, home() / "folder");
    const auto buttons = panel.findChild<PathBar*>()->findChildren<SecondaryRecoveryButton*>();
    ASSERT_EQ(buttons.size(), 2);
    buttons[1]->click();
    EXPECT_EQ(shownFolder(panel), home());
    buttons[0]->click();
    EXPECT_EQ(shownFolder(panel), home() / "folder");
    buttons[0]->click();
    EXPECT_EQ(shownFolder(panel), home());
    EXPECT_FALSE(buttons[0]->isEnabled());
    enterAndReturn(panel, QString("/"));
    waitUntilAt(panel, "/");
    EXPECT_FALSE(buttons[1]->isEnabled());
}

TEST_F(PanelListTest, keepsTheSelectionWhenTheFolderChanges) {
    ItemPanel& panel = openPanel();
    select(panel, home() / "file.txt");
    std::filesystem::create_directory(home() / "another");
    row(panel, home() / "another");
    ASSERT_TRUE(list(panel).selectedItem().isValid());
    EXPECT_EQ(files(panel).path(list(panel).selectedItem()), home() / "file.txt");
}

TEST_F(PanelListTest, showsNamesReadablyAndPassesThemUnchanged) {
    for (const std::string& name : {std::string("photo\u202Egpj\n.ambrel"), std::string("bytes \xFF.ambrel")}) {
        std::filesystem::create_directory(home() / name);
        choices.clear();
        ItemPanel& panel = openPanel();
        const QString shown = row(panel, home() / name).data().toString();
        EXPECT_FALSE(shown.contains(QChar(0x202E)) || shown.contains(u'\n'));
        select(panel, home() / name);
        EXPECT_EQ(nameField(panel).text(), shown);
        openButton(panel).click();
        expectOneChoice(home() / name);
        QTest::qWait(0);
        // The toolkit cannot remove files whose names are no text.
        std::filesystem::remove(home() / name);
    }
}

TEST_F(PanelListTest, saysWhyItIsEmpty) {
    ItemPanel& panel = openPanel();
    doubleClick(panel, home() / "folder");
    waitForFolder(panel, home() / "folder");
    EXPECT_EQ(list(panel).accessibleDescription(), "This folder is empty");
    std::filesystem::remove(home() / "folder");
    EXPECT_TRUE(waitForState(panel, FolderModel::State::unreadable));
    EXPECT_EQ(list(panel).accessibleDescription(), "This folder cannot be opened");
    std::filesystem::create_directory(home() / "folder");
    panel.findChild<PathBar*>()->findChildren<SecondaryRecoveryButton*>()[1]->click();
    waitForFolder(panel, home());
}

TEST_F(PanelListTest, followsAFolderAgainOnceItCanBeOpenedAgain) {
    ItemPanel& panel = openPanel();
    doubleClick(panel, home() / "folder");
    waitForFolder(panel, home() / "folder");
    std::filesystem::rename(home() / "folder", home() / "elsewhere");
    std::ofstream(home() / "elsewhere" / "one") << "x";
    EXPECT_TRUE(waitForState(panel, FolderModel::State::unreadable));
    std::filesystem::rename(home() / "elsewhere", home() / "folder");
    std::ofstream(home() / "folder" / "two") << "x";
    EXPECT_TRUE(row(panel, home() / "folder" / "two").isValid());
}

TEST_F(PanelListTest, sortsByTheHeadingsWithFoldersFirst) {
    std::ofstream(home() / "big") << "longer than the other";
    ItemPanel& panel = openPanel();
    row(panel, home() / "big");
    list(panel).sortByColumn(FolderModel::size, Qt::DescendingOrder);
    EXPECT_EQ(files(panel).item(files(panel).index(0, 0)).name, "folder");
    EXPECT_EQ(files(panel).item(files(panel).index(1, 0)).name, "big");
    list(panel).sortByColumn(FolderModel::name, Qt::AscendingOrder);
    EXPECT_EQ(files(panel).item(files(panel).index(0, 0)).name, "folder");
    EXPECT_EQ(files(panel).item(files(panel).index(1, 0)).name, "big");
}

TEST_F(PanelListTest, isQuickWithAHundredThousandItems) {
    constexpr int count = 100'000;
    const Path many = home() / "many";
    std::filesystem::create_directory(many);
    for (int number = 0; number < count; ++number) {
        close(creat((many / ("item " + std::to_string(number))).c_str(), 0600));
    }
    ItemPanel& panel = openPanel();
    enterAndReturn(panel, QString("many/"));
    // The longest time in which the main thread did nothing else.
    qint64 longest = 0;
    QElapsedTimer turn;
    turn.start();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            longest = std::max(longest, turn.restart());
            return files(panel).rowCount() == count;
        },
        generousMilliseconds));
    list(panel).viewport()->repaint();
    longest = std::max(longest, turn.restart());
    RecordProperty("longestTurnMilliseconds", static_cast<int>(longest));
    EXPECT_LT(longest, 5'000);
    EXPECT_EQ(files(panel).item(files(panel).index(count - 1, 0)).name, "item 99999");
}

TEST_F(PanelListTest, placesAreHomeTheUsualFoldersThatExistAndTheVolumes) {
    std::filesystem::create_directory(home() / "Pictures");
    ItemPanel& panel = openPanel();
    EXPECT_EQ(placesOf(panel).front(), home());
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::ranges::count(placesOf(panel), home() / "Pictures") == 1; },
                                generousMilliseconds));
    EXPECT_TRUE(places(panel).selectionModel()->isRowSelected(0));
    EXPECT_EQ(std::ranges::count(placesOf(panel), home() / "Documents"), 0);
    EXPECT_EQ(std::ranges::count(placesOf(panel), "/"), 1);
}

TEST_F(PanelListTest, placesAreOpenedByClickAndByReturn) {
    ItemPanel& panel = openPanel();
    doubleClick(panel, home() / "folder");
    EXPECT_FALSE(places(panel).selectionModel()->hasSelection());
    QTest::mouseClick(places(panel).viewport(), Qt::LeftButton, {},
                      places(panel).visualRect(places(panel).model()->index(0, 0)).center());
    EXPECT_EQ(shownFolder(panel), home());
    EXPECT_TRUE(places(panel).selectionModel()->hasSelection());
    doubleClick(panel, home() / "folder");
    places(panel).setCurrentIndex(places(panel).model()->index(0, 0));
    QTest::keyClick(&places(panel), Qt::Key_Return);
    EXPECT_EQ(shownFolder(panel), home());
    EXPECT_TRUE(choices.empty());
}

TEST_F(PanelListTest, itsItemsCannotBeChangedByMouseOrKeyboard) {
    ItemPanel& opening = openPanel();
    EXPECT_TRUE(opening.actions().isEmpty());
    for (QAbstractItemView* const view :
         {static_cast<QAbstractItemView*>(&list(opening)), static_cast<QAbstractItemView*>(&places(opening))}) {
        EXPECT_EQ(view->contextMenuPolicy(), Qt::PreventContextMenu);
        EXPECT_EQ(view->editTriggers(), QAbstractItemView::NoEditTriggers);
        EXPECT_EQ(view->dragDropMode(), QAbstractItemView::NoDragDrop);
        EXPECT_TRUE(view->actions().isEmpty());
    }
    const QModelIndex item = row(opening, home() / "file.txt");
    EXPECT_FALSE(item.flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(files(opening).setData(item, "renamed", Qt::EditRole));
    EXPECT_FALSE(files(opening).removeRow(item.row()));
    EXPECT_TRUE(std::filesystem::exists(home() / "file.txt"));
}
