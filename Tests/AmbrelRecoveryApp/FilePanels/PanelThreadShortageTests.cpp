// What the panels do where the system has no thread for a question.

#include "../Support/ThreadShortage.h"
#include "AmbrelRecoveryApp/FilePanels/FolderView.h"
#include "AmbrelRecoveryApp/FilePanels/LatestTask.h"
#include "AmbrelRecoveryApp/FilePanels/NewFolderPanel.h"
#include "AmbrelRecoveryApp/FilePanels/PanelNameField.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "FilePanelsTestCase.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>

namespace {

using namespace std::chrono_literals;

class ThreadShortagePanelTest : public FilePanelsTest {
protected:
    ~ThreadShortagePanelTest() override { waitForBackground(); }
};

} // namespace

TEST(ThreadShortageTaskTest, dropsItsWorkAndCanBeStartedLater) {
    LatestTask task;
    auto captured = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = captured;
    int taken = 0;
    const auto take = [&taken](int outcome) { taken = outcome; };
    {
        const ThreadShortage shortage;
        EXPECT_FALSE(task.start([captured = std::move(captured)] { return *captured; }, take));
    }
    EXPECT_TRUE(watched.expired());
    EXPECT_FALSE(task.isRunning());
    EXPECT_TRUE(BackgroundTask::waitForAll(0ms)) << "nothing is counted as running";
    EXPECT_TRUE(task.start([] { return 2; }, take));
    EXPECT_TRUE(QTest::qWaitFor([&] { return taken != 0; }));
    EXPECT_EQ(taken, 2);
}

TEST_F(ThreadShortagePanelTest, aFolderCannotBeOpenedButAnotherCanLater) {
    ItemPanel* panel = nullptr;
    {
        const ThreadShortage shortage;
        panel = &openPanel();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return list(*panel).accessibleDescription() == QStringLiteral("This folder cannot be opened"); }));
    }
    enterAndReturn(*panel, QString("folder/"));
    waitForFolder(*panel, home() / "folder");
    panel->reject();
    expectOneChoice(std::nullopt);
}

TEST_F(ThreadShortagePanelTest, aTypedPathIsTakenAndItsCheckLeftToTheCaller) {
    ItemPanel& panel = openPanel();
    waitForFolder(panel, home());
    const ThreadShortage shortage;
    enterAndReturn(panel, QString("folder/"));
    expectOneChoice(home() / "folder/");
}

TEST_F(ThreadShortagePanelTest, noFolderIsMadeAndThePanelSaysSo) {
    ItemPanel& panel = savePanel();
    waitForFolder(panel, home());
    button(panel, "New folder")->click();
    NewFolderPanel* const asking = panel.findChild<NewFolderPanel*>();
    {
        const ThreadShortage shortage;
        QTest::keyClick(asking->findChild<PanelNameField*>(), Qt::Key_Return);
    }
    EXPECT_FALSE(asking->accessibleDescription().isEmpty());
    EXPECT_FALSE(std::filesystem::exists(home() / "New folder"));
    QTest::keyClick(asking->findChild<PanelNameField*>(), Qt::Key_Return);
    waitForFolder(panel, home() / "New folder");
}
