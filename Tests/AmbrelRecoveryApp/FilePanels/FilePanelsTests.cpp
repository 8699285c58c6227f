#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"
#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "FilePanelsTestCase.h"

#include <QAccessible>
#include <QDir>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <fstream>

namespace {

QString cancelLabel() {
    return AmbrelStrings::localized(AmbrelStrings::genericCancel());
}

} // namespace

TEST_F(FilePanelsTest, areDialogsUnderTheirTitleWithTheRequestedButton) {
    ItemPanel& panel = openPanel();
    EXPECT_EQ(panel.windowTitle(), "Choose backup package");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&panel)->text(QAccessible::Name), "Choose backup package");
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.windowModality(), Qt::WindowModal);
    EXPECT_EQ(panel.parentWidget(), window.get());
    EXPECT_NE(button(panel, "Choose backup package"), nullptr);
    EXPECT_NE(button(panel, cancelLabel()), nullptr);
    EXPECT_EQ(button(panel, "&Open"), nullptr);
}

TEST_F(FilePanelsTest, giveAssistiveTechnologyAnEditableFileName) {
    QAccessibleInterface* const field = QAccessible::queryAccessibleInterface(&nameField(openPanel()));
    EXPECT_EQ(field->role(), QAccessible::EditableText);
    EXPECT_TRUE(field->state().editable);
    EXPECT_EQ(field->text(QAccessible::Name), AmbrelStrings::localized(AmbrelStrings::detailsFilename()));
}

TEST_F(FilePanelsTest, haveTheColorsOfTheApplication) {
    const QImage picture = openPanel().grab().toImage();
    EXPECT_EQ(picture.pixelColor(2, 2).rgb(), RecoveryPalette::rail().rgb());
}

TEST_F(FilePanelsTest, showAnAmpersandInTheLabelOfTheirButton) {
    panels->chooseBackup({"Title", "This & that"}, recording());
    EXPECT_NE(button(*window->findChild<ItemPanel*>(), "This & that"), nullptr);
}

TEST_F(FilePanelsTest, beginAtHomeAndThenWhereTheLastChoiceWas) {
    ItemPanel& first = openPanel();
    EXPECT_EQ(shownFolder(first), home());
    EXPECT_FALSE(first.findChild<SecondaryRecoveryButton*>()->isEnabled());
    enterAndReturn(first, home() / "folder" / "x.ambrel");
    expectOneChoice(home() / "folder" / "x.ambrel");
    QTest::qWait(0);
    EXPECT_EQ(shownFolder(savePanel()), home() / "folder");
}

TEST_F(FilePanelsTest, beginAtHomeIfTheFolderOfTheLastChoiceIsGone) {
    enterAndReturn(openPanel(), home() / "gone" / "x.ambrel");
    expectOneChoice(home() / "gone" / "x.ambrel");
    QTest::qWait(0);
    waitForFolder(openPanel(), home());
}

TEST_F(FilePanelsTest, completeWithoutAChoiceWhenDismissedByEscape) {
    QTest::keyClick(&openPanel(), Qt::Key_Escape);
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, completeWithoutAChoiceWhenDismissedByEscapeInTheNameField) {
    QTest::keyClick(&nameField(openPanel()), Qt::Key_Escape);
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, completeWithoutAChoiceWhenClosed) {
    openPanel().close();
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, completeWithoutAChoiceWhenCancelled) {
    button(openPanel(), cancelLabel())->click();
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, completeWithoutAChoiceWhenTheWindowIsDestroyed) {
    openPanel();
    window.reset();
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, completeWithoutAChoiceWhenTheyAreDestroyed) {
    openPanel();
    panels.reset();
    expectOneChoice(std::nullopt);
    EXPECT_EQ(window->findChild<ItemPanel*>(), nullptr);
}

TEST_F(FilePanelsTest, completeWithoutAChoiceIfThereIsNoWindow) {
    window.reset();
    panels->chooseBackup({"title", "prompt"}, recording());
    expectOneChoice(std::nullopt);
}

TEST_F(FilePanelsTest, areOpenOneAtATime) {
    ItemPanel& panel = openPanel();
    panels->chooseDestination({"title", "prompt", "name", std::nullopt}, recording());
    expectOneChoice(std::nullopt);
    EXPECT_EQ(window->findChildren<ItemPanel*>().size(), 1);
    choices.clear();
    enterAndReturn(panel, QString("file.txt"));
    expectOneChoice(home() / "file.txt");
}

TEST_F(FilePanelsTest, areHiddenBeforeTheyCompleteAndCanBeOpenedAgain) {
    std::optional<bool> wasVisible;
    panels->chooseBackup({"Choose backup package", "Choose backup package"}, [&](const std::optional<Path>&) {
        wasVisible = window->findChild<ItemPanel*>()->isVisible();
        panels->chooseDestination({"Choose where to export", "Export", "name", std::nullopt}, recording());
    });
    const QPointer<ItemPanel> first = window->findChild<ItemPanel*>();
    enterAndReturn(*first, QString("file.txt"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return first.isNull(); }));
    EXPECT_EQ(wasVisible, false);
    EXPECT_TRUE(choices.empty());
    enterAndReturn(*window->findChild<ItemPanel*>(), QString("new"));
    expectOneChoice(home() / "new");
}

TEST_F(FilePanelsTest, rememberNothingOnDisk) {
    ItemPanel& panel = openPanel();
    doubleClick(panel, home() / "folder");
    enterAndReturn(panel, QString("x"));
    expectOneChoice(home() / "folder" / "x");
    QTest::qWait(0);
    openPanel();
    window.reset();
    EXPECT_FALSE(std::filesystem::exists(root() / "configuration"));
    EXPECT_FALSE(std::filesystem::exists(home() / ".config"));
    EXPECT_FALSE(std::filesystem::exists(home() / ".local"));
    EXPECT_FALSE(std::filesystem::exists(home() / ".cache"));
}
