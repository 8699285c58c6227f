// What the panels do while a folder does not answer.

#include "../Support/HungFolder.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"
#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "AmbrelRecoveryApp/FilePanels/NewFolderPanel.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "FilePanelsTestCase.h"

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <fstream>

namespace {

class HungFolderPanelTest : public FilePanelsTest {
protected:
    ~HungFolderPanelTest() override { waitForBackground(); }

    HungFolderPanelTest() { std::filesystem::create_directory(volume() / "photos"); }

    Path volume() const { return home() / "folder"; }

    /// Waits until something waits for the folder, and nothing of it was asked for on this thread.
    static void expectHungInBackground() {
        EXPECT_TRUE(QTest::qWaitFor([] { return HungFolder::hangingCalls() > 0; }));
        EXPECT_EQ(HungFolder::callsOfThisThread(), 0);
    }
};

} // namespace

TEST_F(HungFolderPanelTest, canBeClosedWhileATypedFolderIsLookedUp) {
    const HungFolder hung(volume());
    ItemPanel& panel = openPanel();
    enterAndReturn(panel, QString("folder/photos/"));
    expectHungInBackground();
    EXPECT_TRUE(panel.isVisible());
    QTest::keyClick(&nameField(panel), Qt::Key_Escape);
    expectOneChoice(std::nullopt);
}

TEST_F(HungFolderPanelTest, looksUpATypedFolderOnceHoweverOftenReturnIsPressed) {
    ItemPanel& panel = openPanel();
    waitForFolder(panel, home());
    const HungFolder hung(volume());
    enterAndReturn(panel, QString("folder/photos/"));
    expectHungInBackground();
    for (int number = 0; number < 10; ++number) {
        QTest::keyClick(&nameField(panel), Qt::Key_Return);
    }
    EXPECT_EQ(HungFolder::hangingCalls(), 1);
}

TEST_F(HungFolderPanelTest, goesToTheFolderThatWasTypedLast) {
    std::filesystem::create_directory(home() / "other");
    ItemPanel& panel = openPanel();
    {
        const HungFolder hung(volume());
        enterAndReturn(panel, QString("folder/photos/"));
        expectHungInBackground();
        enterAndReturn(panel, QString("other/"));
        waitForFolder(panel, home() / "other");
    }
    waitForBackground();
    EXPECT_EQ(shownFolder(panel), home() / "other");
    EXPECT_TRUE(choices.empty());
}

TEST_F(HungFolderPanelTest, ignoresATypedFolderOnceAnItemIsSelectedOrTheNameIsChanged) {
    ItemPanel& panel = savePanel();
    row(panel, home() / "file.txt");
    for (const bool isSelected : {true, false}) {
        {
            const HungFolder hung(volume());
            enterAndReturn(panel, QString("folder/photos/"));
            expectHungInBackground();
            if (isSelected) {
                select(panel, home() / "file.txt");
            } else {
                nameField(panel).setText("My photos");
            }
        }
        waitForBackground();
        EXPECT_EQ(shownFolder(panel), home());
        EXPECT_EQ(nameField(panel).text(), isSelected ? "file.txt" : "My photos");
    }
    EXPECT_TRUE(choices.empty());
}

TEST_F(HungFolderPanelTest, canBeClosedWhileATildeIsResolved) {
    ItemPanel& panel = openPanel();
    enterAndReturn(panel, QString("folder/"));
    waitForFolder(panel, volume());
    const HungFolder hung(volume());
    enterAndReturn(panel, QString("~/file.txt"));
    expectHungInBackground();
    panel.reject();
    expectOneChoice(std::nullopt);
}

TEST_F(HungFolderPanelTest, canBeClosedWhileItShowsTheFolder) {
    ItemPanel& panel = openPanel();
    waitForFolder(panel, home());
    const HungFolder hung(volume());
    doubleClick(panel, volume());
    expectHungInBackground();
    EXPECT_EQ(shownFolder(panel), volume());
    panel.reject();
    expectOneChoice(std::nullopt);
}

TEST_F(HungFolderPanelTest, isShownIfTheHomeFolderHangs) {
    const HungFolder hung(home());
    ItemPanel& panel = savePanel();
    expectHungInBackground();
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
    expectOneChoice(home() / "Ambrel Recovered");
    EXPECT_EQ(HungFolder::callsOfThisThread(), 0);
}

TEST_F(HungFolderPanelTest, isShownIfTheListOfUsualFoldersHangs) {
    std::filesystem::create_directory(root() / "configuration");
    std::ofstream(root() / "configuration" / "user-dirs.dirs") << "XDG_PICTURES_DIR=\"$HOME/folder\"\n";
    const HungFolder hung(root() / "configuration");
    ItemPanel& panel = openPanel();
    waitForFolder(panel, home());
    expectHungInBackground();
}

TEST_F(HungFolderPanelTest, accessesNoFolderOnTheMainThread) {
    const HungFolder watched(home(), HungFolder::Answers::toOtherThreads);
    ItemPanel& panel = savePanel();
    doubleClick(panel, volume());
    waitForFolder(panel, volume());
    enterAndReturn(panel, QString("../"));
    waitForFolder(panel, home());
    button(panel, "New folder")->click();
    QTest::keyClick(panel.findChild<NewFolderPanel*>()->findChild<PanelNameField*>(), Qt::Key_Return);
    waitForFolder(panel, home() / "New folder");
    QTest::keyClick(&list(panel), Qt::Key_Backspace);
    select(panel, home() / "file.txt");
    exportButton(panel).click();
    expectOneChoice(home() / "file.txt");
    EXPECT_EQ(HungFolder::callsOfThisThread(), 0);
}

TEST_F(HungFolderPanelTest, canBeClosedWhileAFolderIsMade) {
    ItemPanel& panel = savePanel();
    enterAndReturn(panel, QString("folder/"));
    waitForFolder(panel, volume());
    const HungFolder hung(volume());
    button(panel, "New folder")->click();
    const QPointer<NewFolderPanel> asking = panel.findChild<NewFolderPanel*>();
    QTest::keyClick(asking->findChild<PanelNameField*>(), Qt::Key_Return);
    expectHungInBackground();
    QTest::keyClick(asking, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asking.isNull(); }));
    EXPECT_TRUE(panel.isVisible());
    panel.reject();
    expectOneChoice(std::nullopt);
}

TEST_F(HungFolderPanelTest, offersNoImpossibleNameAfterAFolderCouldNotBeMade) {
    ItemPanel& panel = savePanel();
    enterAndReturn(panel, QString("folder/"));
    waitForFolder(panel, volume());
    button(panel, "New folder")->click();
    NewFolderPanel& asking = *panel.findChild<NewFolderPanel*>();
    PanelNameField& name = *asking.findChild<PanelNameField*>();
    {
        const HungFolder hung(volume());
        name.setText("photos");
        QTest::keyClick(&name, Qt::Key_Return);
        expectHungInBackground();
        name.setText("../photos");
    }
    waitForBackground();
    EXPECT_TRUE(asking.isVisible());
    EXPECT_FALSE(asking.findChild<PrimaryRecoveryButton*>()->isEnabled());
    asking.reject();
    panel.reject();
    expectOneChoice(std::nullopt);
}
