// What the end of the process does not wait for, because it may never be answered.

#include "AmbrelRecoveryApp/Desktop/DesktopFileViewer.h"
#include "AmbrelRecoveryApp/FilePanels/FolderModel.h"
#include "AmbrelRecoveryApp/FilePanels/PlacesView.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "Support/HungFolder.h"
#include "Support/SilentSocket.h"
#include "Support/TestBus.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace {

using namespace std::chrono_literals;

constexpr int generousMilliseconds = 60'000;

class EndOfProcessTest : public testing::Test {
protected:
    ~EndOfProcessTest() override {
        waitUntil([] { return BackgroundTask::waitForAll(0ms); });
    }

    template<typename Condition>
    static void waitUntil(Condition condition) {
        EXPECT_TRUE(QTest::qWaitFor(condition, generousMilliseconds));
    }

    /// The wait at the end is over long before its limit, which it would reach if it waited for what is not answered.
    static void expectNoWait() {
        QElapsedTimer wait;
        wait.start();
        BackgroundTask::waitForAll(1min);
        EXPECT_LT(wait.elapsed(), generousMilliseconds / 2);
    }

    std::filesystem::path root() const { return directory_.path().toStdString(); }

private:
    QTemporaryDir directory_;
};

} // namespace

TEST_F(EndOfProcessTest, doesNotWaitForASilentSessionBus) {
    const TestBus session("DBUS_SESSION_BUS_ADDRESS");
    const SilentSocket silent(session.socketPath());
    ASSERT_TRUE(silent.isListening());
    DesktopFileViewer viewer(1min);
    viewer.reveal("/home/someone/x");
    expectNoWait();
}

TEST_F(EndOfProcessTest, doesNotWaitForAHungFolderInAPanel) {
    const HungFolder hung(root());
    FolderModel files;
    files.setFolder(root());
    waitUntil([] { return HungFolder::hangingCalls() == 1; });
    expectNoWait();
    EXPECT_EQ(HungFolder::hangingCalls(), 1);
    EXPECT_EQ(files.state(), FolderModel::State::loading);
}

TEST_F(EndOfProcessTest, doesNotWaitForAHungPlaceInAPanel) {
    qputenv("HOME", QByteArray::fromStdString(root().native()));
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString((root() / "configuration").native()));
    const HungFolder hung(root() / "Pictures");
    const PlacesView places;
    waitUntil([] { return HungFolder::hangingCalls() == 1; });
    expectNoWait();
    EXPECT_EQ(HungFolder::hangingCalls(), 1);
}
