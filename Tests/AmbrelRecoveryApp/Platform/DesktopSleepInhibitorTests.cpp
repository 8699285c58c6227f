#include "AmbrelRecoveryApp/Platform/DesktopSleepInhibitor.h"

#include "AmbrelRecoveryApp/Model/BackgroundTask.h"
#include "FakeService.h"
#include "SilentSocket.h"
#include "TestBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDir>
#include <QTest>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

constexpr int generousMilliseconds = 60'000;

/// The end of a pipe that a login manager keeps: it sees when the last copy of the other end is closed.
class LoginManagerLock {
public:
    std::optional<QDBusMessage> grant(const QDBusMessage& call) {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
        ::close(std::exchange(kept_, ends[0]));
        const QDBusUnixFileDescriptor given(ends[1]);
        ::close(ends[1]);
        return call.createReply(QVariant::fromValue(given));
    }
    ~LoginManagerLock() { ::close(kept_); }

    bool isReleased() const {
        pollfd state{.fd = kept_, .events = POLLIN, .revents = 0};
        return kept_ >= 0 && ::poll(&state, 1, 0) == 1 && (state.revents & POLLHUP) != 0;
    }

private:
    int kept_ = -1;
};

class DesktopSleepInhibitorTest : public testing::Test {
protected:
    ~DesktopSleepInhibitorTest() override {
        waitUntil([] { return BackgroundTask::waitForAll(0ms); });
    }

    static std::optional<QDBusMessage> portalGrants(const QDBusMessage& call) {
        return call.createReply(QVariant::fromValue(QDBusObjectPath("/org/freedesktop/portal/desktop/request/1_1/t")));
    }

    std::unique_ptr<FakeService> portal(FakeService::Answer answer) {
        return std::make_unique<FakeService>(session.address(), "org.freedesktop.portal.Desktop",
                                             "/org/freedesktop/portal/desktop", std::move(answer));
    }

    std::unique_ptr<FakeService> loginManager(FakeService::Answer answer) {
        return std::make_unique<FakeService>(system.address(), "org.freedesktop.login1", "/org/freedesktop/login1",
                                             std::move(answer));
    }

    FakeService::Answer grants() {
        return [this](const QDBusMessage& call) { return lock.grant(call); };
    }

    /// The login manager is asked once, grants, and is released at the end.
    void expectTheLoginManagerIsUsed(DesktopSleepInhibitor& used, const FakeService& manager) {
        used.begin("Exporting…");
        waitUntil([&] { return !manager.calls.isEmpty(); });
        // Held: what comes after the answer does not give it back.
        waitUntil([&] { return manager.isCallerGone(); });
        EXPECT_FALSE(lock.isReleased());
        used.end();
        waitUntil([&] { return lock.isReleased(); });
        EXPECT_EQ(manager.calls.size(), 1);
    }

    template<typename Condition>
    static void waitUntil(Condition condition) {
        EXPECT_TRUE(QTest::qWaitFor(condition, generousMilliseconds));
    }

    static qsizetype openDescriptors() { return QDir("/proc/self/fd").entryList(QDir::Files | QDir::System).size(); }

    TestBus session{"DBUS_SESSION_BUS_ADDRESS"};
    TestBus system{"DBUS_SYSTEM_BUS_ADDRESS"};
    LoginManagerLock lock;
    DesktopSleepInhibitor inhibitor{1min};
    DesktopSleepInhibitor impatient{200ms};
};

TEST_F(DesktopSleepInhibitorTest, asksThePortalForAsLongAsItLasts) {
    session.start();
    system.start();
    const auto asked = portal(portalGrants);
    const auto unasked = loginManager(grants());
    inhibitor.begin("Exporting…");
    inhibitor.begin("Exporting…");
    waitUntil([&] { return !asked->calls.isEmpty(); });
    const QDBusMessage call = asked->calls.first();
    EXPECT_EQ(call.interface(), "org.freedesktop.portal.Inhibit");
    EXPECT_EQ(call.member(), "Inhibit");
    EXPECT_EQ(call.signature(), "sua{sv}");
    EXPECT_EQ(call.arguments().at(1).toUInt(), 12U);
    EXPECT_EQ(qdbus_cast<QVariantMap>(call.arguments().at(2)), (QVariantMap{{"reason", "Exporting…"}}));
    EXPECT_FALSE(asked->isCallerGone());
    inhibitor.end();
    waitUntil([&] { return asked->isCallerGone(); });
    EXPECT_EQ(asked->calls.size(), 1);
    EXPECT_TRUE(unasked->calls.isEmpty());
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWhereThereIsNoPortal) {
    session.start();
    system.start();
    const auto manager = loginManager(grants());
    expectTheLoginManagerIsUsed(inhibitor, *manager);
    const QDBusMessage call = manager->calls.first();
    EXPECT_EQ(call.interface(), "org.freedesktop.login1.Manager");
    EXPECT_EQ(call.member(), "Inhibit");
    EXPECT_EQ(call.arguments(), (QVariantList{"sleep:idle", "Ambrel Recovery", "Exporting…", "block"}));
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWhereThereIsNoSessionBus) {
    system.start();
    expectTheLoginManagerIsUsed(inhibitor, *loginManager(grants()));
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWhereTheSessionBusIsSilent) {
    const SilentSocket silent(session.socketPath());
    ASSERT_TRUE(silent.isListening());
    system.start();
    expectTheLoginManagerIsUsed(impatient, *loginManager(grants()));
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWhereThePortalIsOfNoUse) {
    session.start();
    system.start();
    for (const auto& answer : {FakeService::refuses, FakeService::talksNonsense, FakeService::isSilent}) {
        const auto useless = portal(answer);
        const auto manager = loginManager(grants());
        expectTheLoginManagerIsUsed(impatient, *manager);
        EXPECT_TRUE(useless->isCallerGone());
    }
}

TEST_F(DesktopSleepInhibitorTest, nothingHappensWhereTheLoginManagerIsOfNoUse) {
    system.start();
    for (const auto& answer : {FakeService::refuses, FakeService::talksNonsense, FakeService::isSilent}) {
        const auto useless = loginManager(answer);
        impatient.begin("Exporting…");
        waitUntil([&] { return useless->isCallerGone(); });
        impatient.end();
        EXPECT_EQ(useless->calls.size(), 1);
    }
}

TEST_F(DesktopSleepInhibitorTest, nothingHappensWhereThereIsNoBus) {
    for (int round = 0; round < 3; ++round) {
        inhibitor.begin("Exporting…");
        QCoreApplication::processEvents();
        inhibitor.end();
    }
    waitUntil([] { return BackgroundTask::waitForAll(0ms); });
    waitUntil([&] { return inhibitor.children().isEmpty(); });
}

TEST_F(DesktopSleepInhibitorTest, neverWaitsForABusThatDoesNotAnswer) {
    const SilentSocket silentSession(session.socketPath());
    const SilentSocket silentSystem(system.socketPath());
    ASSERT_TRUE(silentSession.isListening() && silentSystem.isListening());
    for (int round = 0; round < 3; ++round) {
        inhibitor.begin("Exporting…");
        QTest::qWait(1);
        inhibitor.end();
    }
    waitUntil([&] { return inhibitor.children().isEmpty(); });
}

TEST_F(DesktopSleepInhibitorTest, releasesWhatThePortalGrantsTooLate) {
    session.start();
    const auto slow = portal(FakeService::isSilent);
    inhibitor.begin("Exporting…");
    waitUntil([&] { return !slow->calls.isEmpty(); });
    inhibitor.end();
    QCoreApplication::processEvents();
    EXPECT_FALSE(slow->isCallerGone());
    slow->answer = portalGrants;
    slow->answerLate();
    waitUntil([&] { return slow->isCallerGone(); });
}

TEST_F(DesktopSleepInhibitorTest, releasesWhatTheLoginManagerGrantsTooLate) {
    system.start();
    const auto slow = loginManager(FakeService::isSilent);
    inhibitor.begin("Exporting…");
    waitUntil([&] { return !slow->calls.isEmpty(); });
    inhibitor.end();
    slow->answer = grants();
    slow->answerLate();
    waitUntil([&] { return lock.isReleased(); });
    waitUntil([&] { return slow->isCallerGone(); });
}

TEST_F(DesktopSleepInhibitorTest, asksNobodyForWhatIsOverAlready) {
    session.start();
    const auto asked = portal(portalGrants);
    inhibitor.begin("Inspecting…");
    inhibitor.end();
    inhibitor.begin("Exporting…");
    waitUntil([&] { return !asked->calls.isEmpty(); });
    inhibitor.end();
    waitUntil([&] { return asked->isCallerGone(); });
    ASSERT_EQ(asked->calls.size(), 1);
    EXPECT_EQ(qdbus_cast<QVariantMap>(asked->calls.first().arguments().at(2)).value("reason"), "Exporting…");
}

TEST_F(DesktopSleepInhibitorTest, releasesEverythingWhenItGoesAway) {
    session.start();
    const auto asked = portal(portalGrants);
    auto gone = std::make_unique<DesktopSleepInhibitor>(1min);
    gone->begin("Exporting…");
    waitUntil([&] { return !asked->calls.isEmpty(); });
    gone.reset();
    waitUntil([&] { return asked->isCallerGone(); });
}

TEST_F(DesktopSleepInhibitorTest, survivesTheEndOfTheBus) {
    auto passing = std::make_unique<TestBus>("DBUS_SESSION_BUS_ADDRESS");
    passing->start();
    {
        const FakeService asked(passing->address(), "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                portalGrants);
        inhibitor.begin("Exporting…");
        waitUntil([&] { return !asked.calls.isEmpty(); });
    }
    passing.reset();
    inhibitor.end();
    waitUntil([&] { return inhibitor.children().isEmpty(); });
}

TEST_F(DesktopSleepInhibitorTest, leavesNoDescriptorOpen) {
    system.start();
    const auto manager = loginManager(grants());
    const auto once = [&] {
        manager->calls.clear();
        inhibitor.begin("Exporting…");
        waitUntil([&] { return !manager->calls.isEmpty(); });
        inhibitor.end();
        waitUntil([&] { return manager->isCallerGone(); });
    };
    once();
    qsizetype before = openDescriptors();
    waitUntil([&] {
        const qsizetype now = openDescriptors();
        return std::exchange(before, now) == now;
    });
    for (int round = 0; round < 20; ++round) {
        once();
    }
    waitUntil([&] { return openDescriptors() <= before; });
}

} // namespace
