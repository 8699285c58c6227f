#include "AmbrelRecoveryApp/Platform/SessionBusCheck.h"

#include "SilentSocket.h"
#include "TestBus.h"

#include <QScopeGuard>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <array>
#include <future>
#include <string>
#include <string_view>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

/// Longer than any bus needs, even on a busy machine.
constexpr std::chrono::milliseconds generousLimit(60'000);
constexpr std::chrono::milliseconds shortLimit(50);

/// Whether a bus that takes the beginning of a conversation and answers with `answer` may be asked.
bool mayBeAskedWhenItSays(std::string_view answer) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("bus");
    const int listening = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto closing = qScopeGuard([&] { ::close(listening); });
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.toStdString().copy(address.sun_path, sizeof address.sun_path - 1);
    const void* const pointer = &address;
    EXPECT_EQ(::bind(listening, static_cast<const sockaddr*>(pointer), sizeof address), 0);
    EXPECT_EQ(::listen(listening, 1), 0);
    const std::future<void> bus = std::async(std::launch::async, [&] {
        const int connection = ::accept(listening, nullptr, nullptr);
        std::array<char, 256> bytes{};
        EXPECT_GT(::recv(connection, bytes.data(), bytes.size(), 0), 0);
        EXPECT_EQ(::send(connection, answer.data(), answer.size(), MSG_NOSIGNAL), static_cast<ssize_t>(answer.size()));
        ::close(connection);
    });
    return SessionBusCheck::mayBeAsked("unix:path=" + path, generousLimit);
}

TEST(SessionBusCheckTests, aBusMayBeAsked) {
    TestBus bus("DBUS_SESSION_BUS_ADDRESS");
    bus.start();
    EXPECT_TRUE(SessionBusCheck::mayBeAsked(bus.address(), generousLimit));
    EXPECT_TRUE(SessionBusCheck::mayBeAsked(bus.address() + ",guid=0;unix:path=/nowhere", generousLimit));
}

TEST(SessionBusCheckTests, anyAnswerOfABusWillDo) {
    EXPECT_TRUE(mayBeAskedWhenItSays("OK 1234\r\n"));
    EXPECT_TRUE(mayBeAskedWhenItSays("REJECTED DBUS_COOKIE_SHA1\r\n"));
}

TEST(SessionBusCheckTests, whatSpeaksAnotherLanguageMayNotBeAsked) {
    EXPECT_FALSE(mayBeAskedWhenItSays("HTTP/1.1 400 Bad Request\r\n"));
    EXPECT_FALSE(mayBeAskedWhenItSays(std::string_view("\xff\x00\n", 3)));
    EXPECT_FALSE(mayBeAskedWhenItSays(std::string(4096, 'x')));
    EXPECT_FALSE(mayBeAskedWhenItSays(""));
}

TEST(SessionBusCheckTests, aSilentBusMayNotBeAsked) {
    const QTemporaryDir folder;
    const SilentSocket socket(folder.filePath("bus"));
    ASSERT_TRUE(socket.isListening());
    EXPECT_FALSE(SessionBusCheck::mayBeAsked("unix:path=" + folder.filePath("bus"), shortLimit));
}

TEST(SessionBusCheckTests, theToolkitItselfNoticesWhatIsNotThere) {
    EXPECT_TRUE(SessionBusCheck::mayBeAsked("unix:path=/nowhere/bus", generousLimit));
    EXPECT_TRUE(SessionBusCheck::mayBeAsked("unix:abstract=nobody%20listens", generousLimit));
    EXPECT_TRUE(SessionBusCheck::mayBeAsked("no address at all", generousLimit));
    EXPECT_TRUE(SessionBusCheck::mayBeAsked("unix:path=/" + QString(500, QChar('x')), generousLimit));
}

TEST(SessionBusCheckTests, aProcessGoesOnWithoutASilentBus) {
    const QByteArray before = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const auto restoring = qScopeGuard([&] { qputenv("DBUS_SESSION_BUS_ADDRESS", before); });
    const QTemporaryDir folder;
    const SilentSocket socket(folder.filePath("bus"));
    qputenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + folder.filePath("bus")).toUtf8());
    SessionBusCheck::passBy(shortLimit);
    EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "disabled:");
}

TEST(SessionBusCheckTests, aProcessKeepsABusThatAnswers) {
    TestBus bus("DBUS_SESSION_BUS_ADDRESS");
    bus.start();
    SessionBusCheck::passBy(generousLimit);
    EXPECT_EQ(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), bus.address());
}

} // namespace
