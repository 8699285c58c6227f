// A key that is held acts once in the panels.

#include "AmbrelRecoveryApp/Controls/HeldKeys.h"
#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "AmbrelRecoveryApp/FilePanels/NewFolderPanel.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "AmbrelRecoveryApp/FilePanels/PlacesView.h"
#include "FilePanelsTestCase.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class HeldKeyPanelTest : public FilePanelsTest {
protected:
    /// What a widget gets from a key that is still held.
    static void repeat(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QString text = key == Qt::Key_Return ? QStringLiteral("\r") : QString();
        for (int time = 0; time < 3; ++time) {
            QKeyEvent press(QEvent::KeyPress, key, modifiers, text, true);
            QApplication::sendEvent(&widget, &press);
            QKeyEvent release(QEvent::KeyRelease, key, modifiers, text, true);
            QApplication::sendEvent(&widget, &release);
        }
        waitForBackground();
    }

    /// As the window has it.
    const HeldKeys heldKeys{nullptr};
};

} // namespace

TEST_F(HeldKeyPanelTest, doesNotConfirmThePanelThatItOpened) {
    ItemPanel& panel = savePanel();
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        repeat(nameField(panel), key);
        ASSERT_TRUE(choices.empty());
    }
    EXPECT_TRUE(panel.isVisible());
    QTest::keyClick(&nameField(panel), Qt::Key_Return);
    expectOneChoice(home() / "Ambrel Recovered");
}

TEST_F(HeldKeyPanelTest, doesNotTakeAnItemOfTheFolderThatItEntered) {
    std::filesystem::create_directories(home() / "folder" / "inner");
    ItemPanel& panel = openPanel();
    select(panel, home() / "folder");
    QTest::keyPress(&list(panel), Qt::Key_Return);
    select(panel, home() / "folder" / "inner");
    repeat(list(panel), Qt::Key_Return);
    ASSERT_TRUE(choices.empty());
    EXPECT_EQ(shownFolder(panel), home() / "folder");
}

TEST_F(HeldKeyPanelTest, doesNotReadAPlaceAgain) {
    ItemPanel& panel = openPanel();
    waitForFolder(panel, home());
    auto& places = *panel.findChild<PlacesView*>();
    places.setCurrentIndex(places.model()->index(0, 0));
    bool wasReadAgain = false;
    QObject::connect(panel.findChild<FolderModel*>(), &FolderModel::wasRead, [&] { wasReadAgain = true; });
    repeat(places, Qt::Key_Return);
    EXPECT_FALSE(wasReadAgain);
    EXPECT_TRUE(choices.empty());
}

TEST_F(HeldKeyPanelTest, dismissesOnlyThePanelInWhichItWasPressed) {
    ItemPanel& panel = savePanel();
    waitForFolder(panel, home());
    button(panel, "New folder")->click();
    const QPointer<NewFolderPanel> asking = panel.findChild<NewFolderPanel*>();
    repeat(*asking, Qt::Key_Escape);
    ASSERT_TRUE(asking && asking->isVisible());
    QTest::keyPress(asking, Qt::Key_Escape);
    repeat(nameField(panel), Qt::Key_Escape);
    EXPECT_TRUE(asking.isNull());
    ASSERT_TRUE(choices.empty());
    EXPECT_TRUE(panel.isVisible());
    QTest::keyClick(&nameField(panel), Qt::Key_Escape);
    expectOneChoice(std::nullopt);
}

TEST_F(HeldKeyPanelTest, makesNoFolderAndDoesNotAskForAName) {
    ItemPanel& panel = savePanel();
    waitForFolder(panel, home());
    QPushButton& newFolder = *button(panel, "New folder");
    newFolder.click();
    const QPointer<NewFolderPanel> asking = panel.findChild<NewFolderPanel*>();
    repeat(*asking->findChild<PanelNameField*>(), Qt::Key_Return);
    ASSERT_TRUE(asking && asking->isVisible());
    EXPECT_FALSE(std::filesystem::exists(home() / "New folder"));
    asking->reject();
    EXPECT_TRUE(QTest::qWaitFor([&] { return asking.isNull(); }));
    repeat(newFolder, Qt::Key_Return);
    EXPECT_EQ(panel.findChild<NewFolderPanel*>(), nullptr);
    QTest::keyClick(&newFolder, Qt::Key_Return);
    EXPECT_NE(panel.findChild<NewFolderPanel*>(), nullptr);
}
