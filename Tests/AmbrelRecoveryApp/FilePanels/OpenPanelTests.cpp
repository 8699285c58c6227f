#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "FilePanelsTestCase.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <fstream>

namespace {

class OpenPanelTest : public FilePanelsTest {};

} // namespace

TEST_F(OpenPanelTest, takesATypedPackageWithoutEnteringIt) {
    enterAndReturn(openPanel(), home() / "Family Photos.ambrel");
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(OpenPanelTest, takesAPackageTypedKeyByKey) {
    ItemPanel& panel = openPanel();
    QTest::keyClicks(&nameField(panel), QString::fromStdString((home() / "Family Photos.ambrel").native()));
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(OpenPanelTest, takesATypedPackageWithATrailingSeparatorWithoutEnteringIt) {
    enterAndReturn(openPanel(), QString("Family Photos.ambrel/"));
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(OpenPanelTest, entersNoPackageByATypedPathOrThroughALink) {
    std::filesystem::create_directory_symlink("Family Photos.ambrel", home() / "link");
    for (const char* name : {"Family Photos.ambrel/inside", "link", "link/inside"}) {
        choices.clear();
        ItemPanel& panel = openPanel();
        waitForFolder(panel, home());
        enterAndReturn(panel, QString::fromUtf8(name) + "/");
        expectOneChoice(home() / name);
        QTest::qWait(0);
    }
    choices.clear();
    ItemPanel& panel = openPanel();
    doubleClick(panel, home() / "link");
    const auto& files = *panel.findChild<FolderModel*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return files.state() == FolderModel::State::unreadable; }));
    EXPECT_EQ(files.rowCount(), 0);
}

TEST_F(OpenPanelTest, takesATypedNameInTheFolderThatIsShown) {
    ItemPanel& panel = openPanel();
    doubleClick(panel, home() / "folder");
    enterAndReturn(panel, QString("sub/x.ambrel"));
    expectOneChoice(home() / "folder" / "sub" / "x.ambrel");
}

TEST_F(OpenPanelTest, takesAPathThatBeginsWithATilde) {
    enterAndReturn(openPanel(), QString("~/file.txt"));
    expectOneChoice(home() / "file.txt");
}

TEST_F(OpenPanelTest, takesAnyTypedPathAndLeavesItsCheckToTheCaller) {
    std::filesystem::create_symlink(home() / "nowhere", home() / "dangling.ambrel");
    for (const char* name : {"folder", "file.txt", "missing.ambrel", "dangling.ambrel", "missing/x"}) {
        choices.clear();
        enterAndReturn(openPanel(), home() / name);
        expectOneChoice(home() / name);
        QTest::qWait(0);
    }
}

TEST_F(OpenPanelTest, doesNothingWithoutAName) {
    ItemPanel& panel = openPanel();
    EXPECT_FALSE(openButton(panel).isEnabled());
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
    nameField(panel).setText(QString("a") + QChar(QChar::Null) + "b");
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
    waitForBackground();
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(choices.empty());
}

TEST_F(OpenPanelTest, entersATypedFolderWithATrailingSeparatorAndGoesUp) {
    ItemPanel& panel = openPanel();
    enterAndReturn(panel, QString("folder/"));
    waitUntilAt(panel, home() / "folder");
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(nameField(panel).text(), "");
    enterAndReturn(panel, QString(".."));
    waitUntilAt(panel, home());
    enterAndReturn(panel, QString("/"));
    waitUntilAt(panel, "/");
    enterAndReturn(panel, QString("tmp"));
    expectOneChoice("/tmp");
}

TEST_F(OpenPanelTest, takesADoubleClickedPackageInAnyLetterCase) {
    std::filesystem::create_directory(home() / "Old.AMBREL");
    std::filesystem::create_directory(home() / "x.Ambrel");
    for (const char* name : {"Family Photos.ambrel", "Old.AMBREL", "x.Ambrel"}) {
        choices.clear();
        doubleClick(openPanel(), home() / name);
        expectOneChoice(home() / name);
        QTest::qWait(0);
    }
}

TEST_F(OpenPanelTest, takesADoubleClickedLinkToAPackageUnderItsOwnName) {
    std::filesystem::create_directory_symlink(home() / "folder", home() / "link.ambrel");
    doubleClick(openPanel(), home() / "link.ambrel");
    expectOneChoice(home() / "link.ambrel");
}

TEST_F(OpenPanelTest, takesADoubleClickedFile) {
    doubleClick(openPanel(), home() / "file.txt");
    expectOneChoice(home() / "file.txt");
}

TEST_F(OpenPanelTest, takesAPackageInTheListWithReturn) {
    ItemPanel& panel = openPanel();
    select(panel, home() / "Family Photos.ambrel");
    QTest::keyClick(&list(panel), Qt::Key_Return);
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(OpenPanelTest, entersADoubleClickedFolder) {
    ItemPanel& panel = openPanel();
    doubleClick(panel, home() / "folder");
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(shownFolder(panel), home() / "folder");
    EXPECT_EQ(nameField(panel).text(), "");
    EXPECT_TRUE(choices.empty());
}

TEST_F(OpenPanelTest, takesTheSelectedItemWithTheButton) {
    for (const char* name : {"Family Photos.ambrel", "folder", "file.txt"}) {
        choices.clear();
        ItemPanel& panel = openPanel();
        select(panel, home() / name);
        EXPECT_EQ(nameField(panel).text(), name);
        ASSERT_TRUE(openButton(panel).isEnabled());
        EXPECT_EQ(openButton(panel).accessibleName(), "Choose backup package");
        openButton(panel).click();
        expectOneChoice(home() / name);
        QTest::qWait(0);
    }
}

TEST_F(OpenPanelTest, takesWhatWasNamedOrSelectedLast) {
    ItemPanel& panel = openPanel();
    select(panel, home() / "Family Photos.ambrel");
    // As assistive technology does, which need not move the focus into the field.
    nameField(panel).setText("file.txt");
    EXPECT_FALSE(list(panel).selectionModel()->hasSelection());
    openButton(panel).click();
    expectOneChoice(home() / "file.txt");
    QTest::qWait(0);

    choices.clear();
    ItemPanel& next = openPanel();
    nameField(next).setText("file.txt");
    select(next, home() / "Family Photos.ambrel");
    openButton(next).click();
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(OpenPanelTest, keepsATypedNameWhenASelectedItemDisappears) {
    ItemPanel& panel = openPanel();
    select(panel, home() / "file.txt");
    nameField(panel).setText("typed");
    std::filesystem::remove(home() / "file.txt");
    std::filesystem::create_directory(home() / "new");
    row(panel, home() / "new");
    EXPECT_EQ(nameField(panel).text(), "typed");
    openButton(panel).click();
    expectOneChoice(home() / "typed");
}

TEST_F(OpenPanelTest, keepsTheNameOfASelectedItemThatDisappears) {
    ItemPanel& panel = openPanel();
    select(panel, home() / "Family Photos.ambrel");
    std::filesystem::remove_all(home() / "Family Photos.ambrel");
    std::filesystem::create_directory(home() / "new");
    row(panel, home() / "new");
    EXPECT_FALSE(list(panel).selectionModel()->hasSelection());
    openButton(panel).click();
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(OpenPanelTest, takesNamesLiterally) {
    for (const char* name : {"a \"quoted\" name.ambrel", ":colon.ambrel", "~tilde.ambrel", "two\nlines.ambrel", "$HOME",
                             "50%25.ambrel", "\\back.ambrel"}) {
        std::filesystem::create_directory(home() / name);
        choices.clear();
        ItemPanel& typed = openPanel();
        nameField(typed).setText(QString::fromUtf8(name));
        QTest::keyClick(&nameField(typed), Qt::Key_Return);
        expectOneChoice(home() / name);
        QTest::qWait(0);
        choices.clear();
        ItemPanel& selected = openPanel();
        select(selected, home() / name);
        openButton(selected).click();
        expectOneChoice(home() / name);
        QTest::qWait(0);
    }
}

TEST_F(OpenPanelTest, changesNothingInTheFolder) {
    ItemPanel& panel = openPanel();
    EXPECT_EQ(button(panel, "New folder"), nullptr);
    select(panel, home() / "file.txt");
    for (const auto key : {Qt::Key_Delete, Qt::Key_F2}) {
        QTest::keyClick(&list(panel), key);
    }
    EXPECT_FALSE(list(panel).isPersistentEditorOpen(list(panel).currentIndex()));
    EXPECT_EQ(QApplication::activeModalWidget(), &panel);
    EXPECT_EQ(list(panel).contextMenuPolicy(), Qt::PreventContextMenu);
    EXPECT_EQ(list(panel).dragDropMode(), QAbstractItemView::NoDragDrop);
    EXPECT_TRUE(std::filesystem::exists(home() / "file.txt"));
}

TEST_F(OpenPanelTest, showsHiddenItemsOnDemand) {
    std::filesystem::create_directory(home() / ".hidden.ambrel");
    ItemPanel& panel = openPanel();
    row(panel, home() / "file.txt");
    EXPECT_FALSE(shownRow(panel, ".hidden.ambrel").isValid());
    QTest::keyClick(&nameField(panel), Qt::Key_H, Qt::ControlModifier);
    EXPECT_TRUE(row(panel, home() / ".hidden.ambrel").isValid());
}
