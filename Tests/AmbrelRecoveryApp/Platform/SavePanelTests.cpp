#include "FilePanelsTestCase.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <gtest/gtest.h>

namespace {

class SavePanelTest : public FilePanelsTest {
protected:
    /// Presses the button that makes a folder, and gives the field in which its name is typed.
    QLineEdit& makeFolder(ItemPanel& panel) {
        row(panel, home() / "folder");
        panel.findChild<QToolButton*>("newFolderButton")->click();
        return *list(panel).viewport()->findChild<QLineEdit*>();
    }
};

} // namespace

TEST_F(SavePanelTest, proposesANameAndTakesItWithReturn) {
    ItemPanel& panel = savePanel();
    EXPECT_EQ(nameField(panel).text(), "Ambrel Recovered");
    EXPECT_EQ(nameField(panel).selectedText(), "Ambrel Recovered");
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
    expectOneChoice(home() / "Ambrel Recovered");
    EXPECT_FALSE(std::filesystem::exists(home() / "Ambrel Recovered"));
}

TEST_F(SavePanelTest, takesTheNameWithTheButton) {
    exportButton(savePanel()).click();
    expectOneChoice(home() / "Ambrel Recovered");
}

TEST_F(SavePanelTest, takesTheNameOfAnExistingItemWithoutEnteringItOrAsking) {
    std::filesystem::create_directory(home() / "Ambrel Recovered");
    for (const char* name : {"Ambrel Recovered", "file.txt", "folder"}) {
        choices.clear();
        ItemPanel& panel = savePanel();
        row(panel, home() / name);
        enterAndReturn(panel, QString(name));
        expectOneChoice(home() / name);
        QTest::qWait(0);
    }
}

TEST_F(SavePanelTest, takesATypedAbsolutePath) {
    enterAndReturn(savePanel(), home() / "folder" / "new");
    expectOneChoice(home() / "folder" / "new");
}

TEST_F(SavePanelTest, takesNamesAsTheyAre) {
    for (const char* name : {"two  spaces ", " in front", "a.b.", "...", "-leading", "100 %", "Ünïcödé 写真", "a&b",
                             "name.png", "two\nlines", ":colon", "a \"quoted\" name", "\\", "~", "$HOME"}) {
        choices.clear();
        ItemPanel& panel = savePanel();
        if (name == std::string("~")) {
            std::filesystem::create_directory(home() / name);
        }
        nameField(panel).setText(QString::fromUtf8(name));
        QTest::keyClick(&nameField(panel), Qt::Key_Return);
        expectOneChoice(home() / name);
        QTest::qWait(0);
    }
}

TEST_F(SavePanelTest, keepsTheNameWhenAFolderIsEntered) {
    ItemPanel& panel = savePanel();
    nameField(panel).setText("My photos");
    doubleClick(panel, home() / "folder");
    EXPECT_EQ(shownFolder(panel), home() / "folder");
    EXPECT_EQ(nameField(panel).text(), "My photos");
    exportButton(panel).click();
    expectOneChoice(home() / "folder" / "My photos");
}

TEST_F(SavePanelTest, entersTheSelectedFolderWithTheButtonFirst) {
    ItemPanel& panel = savePanel();
    select(panel, home() / "folder");
    EXPECT_EQ(nameField(panel).text(), "Ambrel Recovered");
    exportButton(panel).click();
    EXPECT_TRUE(choices.empty());
    EXPECT_EQ(shownFolder(panel), home() / "folder");
    exportButton(panel).click();
    expectOneChoice(home() / "folder" / "Ambrel Recovered");
}

TEST_F(SavePanelTest, entersATypedFolderWithASeparatorAtItsEndAndProposesTheNameAgain) {
    ItemPanel& panel = savePanel();
    enterAndReturn(panel, QString("folder/"));
    EXPECT_EQ(shownFolder(panel), home() / "folder");
    EXPECT_EQ(nameField(panel).selectedText(), "Ambrel Recovered");
    EXPECT_TRUE(choices.empty());
}

TEST_F(SavePanelTest, takesANewNameWithASeparatorAtItsEnd) {
    enterAndReturn(savePanel(), QString("new/"));
    expectOneChoice(home() / "new");
}

TEST_F(SavePanelTest, neverEntersAPackage) {
    ItemPanel& panel = savePanel();
    select(panel, home() / "Family Photos.ambrel");
    EXPECT_EQ(nameField(panel).text(), "Family Photos.ambrel");
    exportButton(panel).click();
    expectOneChoice(home() / "Family Photos.ambrel");
}

TEST_F(SavePanelTest, keepsTheNameWhenTheFocusGoesThroughTheList) {
    ItemPanel& panel = savePanel();
    row(panel, home() / "file.txt");
    list(panel).setFocus();
    EXPECT_EQ(nameField(panel).text(), "Ambrel Recovered");
}

TEST_F(SavePanelTest, makesAFolderThatCanBeNamedAndEntered) {
    ItemPanel& panel = savePanel();
    QLineEdit& name = makeFolder(panel);
    EXPECT_TRUE(std::filesystem::is_directory(home() / "New Folder"));
    name.selectAll();
    QTest::keyClicks(&name, "Recovered photos");
    QTest::keyClick(&name, Qt::Key_Return);
    QTest::qWait(0);
    EXPECT_TRUE(std::filesystem::is_directory(home() / "Recovered photos"));
    EXPECT_FALSE(std::filesystem::exists(home() / "New Folder"));
    EXPECT_TRUE(choices.empty());
    row(panel, home() / "Recovered photos");
    exportButton(panel).click();
    EXPECT_EQ(shownFolder(panel), home() / "Recovered photos");
    EXPECT_EQ(nameField(panel).text(), "Ambrel Recovered");
}

TEST_F(SavePanelTest, keepsTheNameOfAMadeFolderWhereTheTypedOneCannotBe) {
    for (const QString typed : {"", ".", "..", "a/b", "file.txt"}) {
        ItemPanel& panel = savePanel();
        QLineEdit& name = makeFolder(panel);
        name.setText(typed);
        QTest::keyClick(&name, Qt::Key_Return);
        QTest::qWait(0);
        EXPECT_EQ(QApplication::activeModalWidget(), &panel);
        EXPECT_TRUE(std::filesystem::is_directory(home() / "New Folder"));
        EXPECT_TRUE(std::filesystem::is_regular_file(home() / "file.txt"));
        std::filesystem::remove(home() / "New Folder");
        panel.close();
        QTest::qWait(0);
    }
}

TEST_F(SavePanelTest, changesNothingThatWasThereBefore) {
    ItemPanel& panel = savePanel();
    select(panel, home() / "file.txt");
    for (const auto key : {Qt::Key_Delete, Qt::Key_F2}) {
        QTest::keyClick(&list(panel), key);
    }
    EXPECT_EQ(list(panel).viewport()->findChild<QLineEdit*>(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), &panel);
    EXPECT_TRUE(std::filesystem::exists(home() / "file.txt"));
}
