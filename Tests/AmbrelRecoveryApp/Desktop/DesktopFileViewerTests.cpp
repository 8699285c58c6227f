#include "AmbrelRecoveryApp/Desktop/DesktopFileViewer.h"

#include "../Support/SilentSocket.h"
#include "../Support/TestBus.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "FakeFileManager.h"
#include "FakeService.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace std::chrono_literals;

constexpr int generousMilliseconds = 60'000;

} // namespace

/// Notes which folders are opened, in the place of the desktop.
class FolderOpener : public QObject {
    Q_OBJECT

public:
    FolderOpener() { QDesktopServices::setUrlHandler("file", this, "open"); }
    ~FolderOpener() override { QDesktopServices::unsetUrlHandler("file"); }

    QList<QByteArray> opened;

public slots:
    void open(const QUrl& folder) { opened.append(folder.toEncoded()); }
};

namespace {

class DesktopFileViewerTest : public testing::Test {
protected:
    ~DesktopFileViewerTest() override {
        waitUntil([] { return BackgroundTask::waitForAll(0ms); });
        QDBusConnection::disconnectFromBus("file manager");
    }

    void startManager(FakeFileManager& manager) {
        QDBusConnection connection = QDBusConnection::connectToBus(bus.address(), "file manager");
        ASSERT_TRUE(
            connection.registerObject("/org/freedesktop/FileManager1", &manager, QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(connection.registerService("org.freedesktop.FileManager1"));
    }

    template<typename Condition>
    static void waitUntil(Condition condition) {
        EXPECT_TRUE(QTest::qWaitFor(condition, generousMilliseconds));
    }

    static bool hasUnansweredCall(const DesktopFileViewer& asking) {
        return !asking.findChildren<QDBusPendingCallWatcher*>().isEmpty();
    }

    static qsizetype openDescriptors() { return QDir("/proc/self/fd").entryList(QDir::Files | QDir::System).size(); }

    TestBus bus{"DBUS_SESSION_BUS_ADDRESS"};
    DesktopFileViewer viewer{1min};
};

} // namespace

TEST_F(DesktopFileViewerTest, asksTheFileManagerToSelectTheItem) {
    bus.start();
    FakeFileManager manager;
    startManager(manager);
    const FolderOpener opener;
    viewer.reveal("/home/someone/Ambrel Recovered");
    waitUntil([&] { return !manager.shown.isEmpty(); });
    EXPECT_EQ(manager.shown, QStringList("file:///home/someone/Ambrel%20Recovered"));
    EXPECT_TRUE(opener.opened.isEmpty());
}

TEST_F(DesktopFileViewerTest, namesEveryItemExactly) {
    bus.start();
    FakeFileManager manager;
    startManager(manager);
    const std::vector<std::pair<const char*, const char*>> items{
        {"/a/100%", "file:///a/100%25"},
        {"/a/#?&;+", "file:///a/%23%3F%26%3B%2B"},
        {"/a/two\nlines", "file:///a/two%0Alines"},
        {"/a/ü", "file:///a/%C3%BC"},
        {"/a/\xFF", "file:///a/%FF"},
        {"/a/-x.", "file:///a/-x."},
        {"/a/c:\\d", "file:///a/c%3A%5Cd"},
        {"/", "file:///"},
    };
    for (const auto& [path, url] : items) {
        manager.shown.clear();
        viewer.reveal(path);
        waitUntil([&] { return !manager.shown.isEmpty(); });
        EXPECT_EQ(manager.shown, QStringList(url));
    }
}

TEST_F(DesktopFileViewerTest, opensTheContainingFolderWithoutABus) {
    const FolderOpener opener;
    viewer.reveal("/home/some one/Ambrel Recovered");
    waitUntil([&] { return !opener.opened.isEmpty(); });
    EXPECT_EQ(opener.opened, QList<QByteArray>{"file:///home/some%20one"});
}

TEST_F(DesktopFileViewerTest, opensTheContainingFolderWithoutAFileManager) {
    bus.start();
    const FolderOpener opener;
    viewer.reveal("/home/100%/Ambrel Recovered");
    waitUntil([&] { return !opener.opened.isEmpty(); });
    EXPECT_EQ(opener.opened, QList<QByteArray>{"file:///home/100%25"});
}

TEST_F(DesktopFileViewerTest, opensTheContainingFolderIfTheFileManagerRefuses) {
    bus.start();
    FakeFileManager manager(FakeFileManager::Answer::error);
    startManager(manager);
    const FolderOpener opener;
    viewer.reveal("/home/someone/x");
    waitUntil([&] { return !opener.opened.isEmpty(); });
    EXPECT_EQ(opener.opened, QList<QByteArray>{"file:///home/someone"});
}

TEST_F(DesktopFileViewerTest, opensTheContainingFolderOnceIfTheFileManagerAnswersTooLate) {
    bus.start();
    FakeFileManager manager(FakeFileManager::Answer::none);
    startManager(manager);
    const FolderOpener opener;
    DesktopFileViewer impatient(200ms);
    impatient.reveal("/home/someone/x");
    waitUntil([&] { return !manager.shown.isEmpty() && !opener.opened.isEmpty(); });
    manager.answerLate();
    viewer.reveal("/home/someone/y");
    waitUntil([&] { return manager.shown.size() == 2; });
    EXPECT_EQ(opener.opened, QList<QByteArray>{"file:///home/someone"});
}

TEST_F(DesktopFileViewerTest, neverWaitsForABusThatDoesNotAnswer) {
    const SilentSocket silentBus(bus.socketPath());
    ASSERT_TRUE(silentBus.isListening());
    const FolderOpener opener;
    DesktopFileViewer patient(1min);
    patient.reveal("/home/someone/y");
    // Asked, not answered, and the main thread goes on.
    waitUntil([&] { return hasUnansweredCall(patient); });
    EXPECT_TRUE(opener.opened.isEmpty());
    DesktopFileViewer impatient(200ms);
    impatient.reveal("/home/someone/x");
    waitUntil([&] { return !opener.opened.isEmpty(); });
    EXPECT_EQ(opener.opened, QList<QByteArray>{"file:///home/someone"});
}

TEST_F(DesktopFileViewerTest, delaysNoOtherConnectionWhileTheBusDoesNotAnswer) {
    const SilentSocket silentBus(bus.socketPath());
    ASSERT_TRUE(silentBus.isListening());
    TestBus other("DBUS_SYSTEM_BUS_ADDRESS");
    other.start();
    const FolderOpener opener;
    DesktopFileViewer patient(1min);
    patient.reveal("/home/someone/x");
    waitUntil([&] { return hasUnansweredCall(patient); });
    // Connecting, greeting and taking a name, all of which wait for an answer. The toolkit gives one up after 25 s.
    QElapsedTimer wait;
    wait.start();
    const FakeService service(other.address(), "org.example.Other", "/", FakeService::refuses);
    EXPECT_LT(wait.elapsed(), 20'000);
    EXPECT_TRUE(hasUnansweredCall(patient));
    EXPECT_TRUE(opener.opened.isEmpty());
}

TEST_F(DesktopFileViewerTest, opensTheContainingFolderInsteadOfStartingABus) {
    qputenv("DBUS_SESSION_BUS_ADDRESS", "autolaunch:");
    const FolderOpener opener;
    DesktopFileViewer patient(1min);
    patient.reveal("/home/someone/x");
    waitUntil([&] { return !opener.opened.isEmpty(); });
}

TEST_F(DesktopFileViewerTest, reportsWhenNoFileManagerConfirmsThatItShowsTheItem) {
    bus.start();
    FakeFileManager manager;
    startManager(manager);
    const FolderOpener opener;
    std::vector<std::filesystem::path> unconfirmed;
    QObject::connect(&viewer, &DesktopFileViewer::revealUnconfirmed,
                     [&](const std::filesystem::path& item) { unconfirmed.push_back(item); });
    viewer.reveal("/home/someone/x");
    waitUntil([&] { return !manager.shown.isEmpty(); });
    QDBusConnection::disconnectFromBus("file manager");
    viewer.reveal("/home/someone/y");
    waitUntil([&] { return !unconfirmed.empty(); });
    EXPECT_EQ(unconfirmed, std::vector<std::filesystem::path>{"/home/someone/y"});
    EXPECT_EQ(opener.opened, QList<QByteArray>{"file:///home/someone"});
}

TEST_F(DesktopFileViewerTest, asksAgainForAnItemOnlyAfterAnAnswer) {
    bus.start();
    FakeFileManager manager(FakeFileManager::Answer::none);
    startManager(manager);
    viewer.reveal("/home/someone/x");
    viewer.reveal("/home/someone/x");
    viewer.reveal("/home/someone/y");
    waitUntil([&] { return manager.shown.size() == 2; });
    manager.answerLate();
    const QString again = manager.shown.last();
    waitUntil([&] {
        viewer.reveal(QUrl(again).toLocalFile().toStdString());
        return manager.shown.size() > 2;
    });
    EXPECT_EQ(manager.shown.at(2), again);
}

TEST_F(DesktopFileViewerTest, mayBeDestroyedBeforeThereIsAnAnswer) {
    bus.start();
    FakeFileManager manager(FakeFileManager::Answer::none);
    startManager(manager);
    const FolderOpener opener;
    auto gone = std::make_unique<DesktopFileViewer>(1min);
    gone->reveal("/home/someone/x");
    waitUntil([&] { return !manager.shown.isEmpty(); });
    gone.reset();
    auto goneAtOnce = std::make_unique<DesktopFileViewer>(1min);
    goneAtOnce->reveal("/home/someone/y");
    goneAtOnce.reset();
    manager.answerLate();
    viewer.reveal("/home/someone/z");
    waitUntil([&] { return manager.shown.size() >= 2; });
    EXPECT_FALSE(manager.shown.contains("file:///home/someone/y"));
    EXPECT_TRUE(opener.opened.isEmpty());
}

TEST_F(DesktopFileViewerTest, leavesNoDescriptorOpen) {
    bus.start();
    FakeFileManager manager;
    startManager(manager);
    int number = 0;
    const auto revealAndWait = [&] {
        manager.shown.clear();
        viewer.reveal("/home/someone/" + std::to_string(++number));
        waitUntil([&] { return !manager.shown.isEmpty(); });
    };
    revealAndWait();
    qsizetype before = openDescriptors();
    // The first call's own connection may still be open.
    waitUntil([&] {
        const qsizetype now = openDescriptors();
        return std::exchange(before, now) == now;
    });
    for (int round = 0; round < 20; ++round) {
        revealAndWait();
    }
    waitUntil([&] { return openDescriptors() <= before; });
}

#include "DesktopFileViewerTests.moc"
