#include "AmbrelRecoveryApp/Platform/DesktopFileViewer.h"

#include <QDBusConnection>
#include <QDesktopServices>
#include <QObject>
#include <QProcess>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int generousMilliseconds = 60'000;

} // namespace

/// Notes what is to be shown, in the place of a file manager.
class FileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;

public slots:
    void ShowItems(const QStringList& items, const QString&) { shown += items; }
};

/// Notes which folders are opened, in the place of the desktop.
class FolderOpener : public QObject {
    Q_OBJECT

public:
    FolderOpener() { QDesktopServices::setUrlHandler("file", this, "open"); }
    ~FolderOpener() override { QDesktopServices::unsetUrlHandler("file"); }

    QList<QUrl> opened;

public slots:
    void open(const QUrl& folder) { opened.append(folder); }
};

namespace {

/// A session bus of its own for all tests: the process connects to its session bus only once.
class DesktopFileViewerTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        bus = std::make_unique<QProcess>();
        bus->start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        ASSERT_TRUE(bus->waitForReadyRead(generousMilliseconds));
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus->readLine().trimmed());
        ASSERT_TRUE(QDBusConnection::sessionBus().isConnected());
    }

    static void TearDownTestSuite() {
        bus->terminate();
        bus->waitForFinished(generousMilliseconds);
        bus.reset();
    }

    FolderOpener opener;
    DesktopFileViewer viewer;

    static std::unique_ptr<QProcess> bus;
};

std::unique_ptr<QProcess> DesktopFileViewerTest::bus;

} // namespace

TEST_F(DesktopFileViewerTest, asksTheFileManagerToSelectTheItem) {
    FileManager manager;
    QDBusConnection connection = QDBusConnection::sessionBus();
    ASSERT_TRUE(connection.registerObject("/org/freedesktop/FileManager1", &manager, QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(connection.registerService("org.freedesktop.FileManager1"));
    viewer.reveal("/home/someone/Ambrel Recovered 100%");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !manager.shown.isEmpty(); }, generousMilliseconds));
    EXPECT_EQ(manager.shown, QStringList("file:///home/someone/Ambrel%20Recovered%20100%25"));
    EXPECT_TRUE(opener.opened.isEmpty());
    connection.unregisterService("org.freedesktop.FileManager1");
    connection.unregisterObject("/org/freedesktop/FileManager1");
}

TEST_F(DesktopFileViewerTest, opensTheFolderThatHoldsTheItemWhereThereIsNoFileManager) {
    viewer.reveal("/home/some one/Ambrel Recovered");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !opener.opened.isEmpty(); }, generousMilliseconds));
    EXPECT_EQ(opener.opened, QList<QUrl>{QUrl::fromLocalFile("/home/some one")});
}

#include "DesktopFileViewerTests.moc"
