#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "AmbrelRecoveryApp/FilePanels/NewFolderPanel.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "FilePanelsTestCase.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class SavePanelTest : public FilePanelsTest {
protected:
    /// Presses the button that makes a folder, and gives the panel that asks for its name.
    NewFolderPanel& askForFolder(ItemPanel& panel) {
        row(panel, home() / "folder");
        button(panel, "New folder")->click();
        return *panel.findChild<NewFolderPanel*>();
    }

    /// The panel for a new folder refuses this name in this folder.
    void expectNotMade(const Path& folder, const QString& name) {
        auto& asking = *new NewFolderPanel(folder, window.get());
        nameOf(asking).setText(name);
        asking.accept();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !asking.accessibleDescription().isEmpty(); }));
        EXPECT_EQ(asking.accessibleDescription(), "The folder could not be created.");
        EXPECT_FALSE(std::filesystem::exists(folder / name.toStdString()));
        delete &asking;
    }

    static PanelNameField& nameOf(NewFolderPanel& asking) { return *asking.findChild<PanelNameField*>(); }
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

TEST_F(SavePanelTest, takesNamesLiterally) {
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

TEST_F(SavePanelTest, entersTheSelectedFolderBeforeItTakesTheNameWithTheButton) {
    ItemPanel& panel = savePanel();
    select(panel, home() / "folder");
    EXPECT_EQ(nameField(panel).text(), "Ambrel Recovered");
    exportButton(panel).click();
    EXPECT_TRUE(choices.empty());
    EXPECT_EQ(shownFolder(panel), home() / "folder");
    exportButton(panel).click();
    expectOneChoice(home() / "folder" / "Ambrel Recovered");
}

TEST_F(SavePanelTest, entersATypedFolderWithATrailingSeparatorAndProposesTheNameAgain) {
    ItemPanel& panel = savePanel();
    enterAndReturn(panel, QString("folder/"));
    waitUntilAt(panel, home() / "folder");
    EXPECT_EQ(nameField(panel).selectedText(), "Ambrel Recovered");
    EXPECT_TRUE(choices.empty());
}

TEST_F(SavePanelTest, takesANewNameWithATrailingSeparator) {
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

TEST_F(SavePanelTest, keepsTheNameWhenTheListGetsTheFocus) {
    ItemPanel& panel = savePanel();
    row(panel, home() / "file.txt");
    list(panel).setFocus();
    EXPECT_EQ(nameField(panel).text(), "Ambrel Recovered");
}

TEST_F(SavePanelTest, makesAFolderAndEntersIt) {
    ItemPanel& panel = savePanel();
    NewFolderPanel& asking = askForFolder(panel);
    EXPECT_EQ(nameOf(asking).selectedText(), "New folder");
    QTest::keyClicks(&nameOf(asking), "Recovered photos");
    QTest::keyClick(&nameOf(asking), Qt::Key_Return);
    waitForFolder(panel, home() / "Recovered photos");
    EXPECT_TRUE(std::filesystem::is_directory(home() / "Recovered photos"));
    EXPECT_FALSE(std::filesystem::exists(home() / "New folder"));
    EXPECT_EQ(nameField(panel).text(), "Ambrel Recovered");
    EXPECT_TRUE(choices.empty());
    QTest::qWait(0);
    EXPECT_EQ(panel.findChild<NewFolderPanel*>(), nullptr);
    exportButton(panel).click();
    expectOneChoice(home() / "Recovered photos" / "Ambrel Recovered");
}

TEST_F(SavePanelTest, keepsAskingForANameIfTheFolderCannotBeMade) {
    ItemPanel& panel = savePanel();
    NewFolderPanel& asking = askForFolder(panel);
    nameOf(asking).setText("file.txt");
    QTest::keyClick(&nameOf(asking), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !asking.accessibleDescription().isEmpty(); }));
    EXPECT_EQ(asking.accessibleDescription(), "An item with this name already exists.");
    EXPECT_TRUE(asking.isVisible());
    EXPECT_TRUE(std::filesystem::is_regular_file(home() / "file.txt"));
    nameOf(asking).setText(QString(300, u'x'));
    EXPECT_EQ(asking.accessibleDescription(), "");
    QTest::keyClick(&nameOf(asking), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !asking.accessibleDescription().isEmpty(); }));
    EXPECT_EQ(asking.accessibleDescription(), "The folder could not be created.");
}

TEST_F(SavePanelTest, refusesImpossibleFolderNames) {
    ItemPanel& panel = savePanel();
    NewFolderPanel& asking = askForFolder(panel);
    for (const QString& typed : {QString(""), QString("."), QString(".."), QString("a/b"), QString(QChar(u'\0'))}) {
        nameOf(asking).setText(typed);
        QTest::keyClick(&nameOf(asking), Qt::Key_Return);
        EXPECT_TRUE(asking.isVisible());
        EXPECT_FALSE(asking.findChild<PrimaryRecoveryButton*>()->isEnabled());
    }
    QTest::keyClick(&nameOf(asking), Qt::Key_Escape);
    EXPECT_FALSE(asking.isVisible());
    EXPECT_TRUE(panel.isVisible());
    EXPECT_FALSE(std::filesystem::exists(home() / "New folder"));
}

TEST_F(SavePanelTest, makesNothingInAPackage) {
    const Path package = home() / "Family Photos.ambrel";
    std::filesystem::create_directory_symlink(package, home() / "link");
    ItemPanel& panel = savePanel();
    doubleClick(panel, home() / "link");
    waitForBackground();
    EXPECT_EQ(shownFolder(panel), home() / "link");
    EXPECT_FALSE(button(panel, "New folder")->isEnabled());
    enterAndReturn(panel, package / "inside" / "");
    expectOneChoice(package / "inside");
    for (const Path& folder : {package, package / "inside", home() / "link", home() / "link" / "inside"}) {
        expectNotMade(folder, "New folder");
    }
    expectNotMade(home(), "new.ambrel");
}

TEST_F(SavePanelTest, changesNoExistingItem) {
    ItemPanel& panel = savePanel();
    select(panel, home() / "file.txt");
    for (const auto key : {Qt::Key_Delete, Qt::Key_F2}) {
        QTest::keyClick(&list(panel), key);
    }
    EXPECT_EQ(list(panel).viewport()->findChild<QLineEdit*>(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), &panel);
    EXPECT_TRUE(std::filesystem::exists(home() / "file.txt"));
}
