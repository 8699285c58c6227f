#include "AmbrelRecoveryApp/Desktop/DesktopSleepInhibitor.h"

#include "../Support/SilentSocket.h"
#include "../Support/TestBus.h"
#include "AmbrelRecoveryApp/Desktop/SleepInhibition.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "FakeService.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
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
const QString request = "/org/freedesktop/portal/desktop/request/1_1/t";

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
        return call.member() == "Inhibit" ? call.createReply(QVariant::fromValue(QDBusObjectPath(request)))
                                          : call.createReply();
    }

    std::unique_ptr<FakeService> portal(FakeService::Answer answer) {
        return std::make_unique<FakeService>(session.address(), "org.freedesktop.portal.Desktop",
                                             "/org/freedesktop/portal/desktop", std::move(answer));
    }

    std::unique_ptr<FakeService> loginManager(FakeService::Answer answer) {
        return std::make_unique<FakeService>(system.address(), "org.freedesktop.login1", "/org/freedesktop/login1",
                                             std::move(answer));
    }

    /// Knows the portal, but grants nothing.
    static FakeService::Answer portalThatOnlyKnows(const FakeService::Answer& answer) {
        return [answer](const QDBusMessage& call) {
            return call.member() == "ReadAll" ? portalGrants(call) : answer(call);
        };
    }

    static QStringList members(const FakeService& service) {
        QStringList members;
        for (const QDBusMessage& call : service.calls) {
            members << call.member();
        }
        return members;
    }

    /// One that the portal has got to know.
    static std::unique_ptr<DesktopSleepInhibitor> introduced(const FakeService& portal,
                                                             std::chrono::milliseconds limit = 1min) {
        auto inhibitor = std::make_unique<DesktopSleepInhibitor>(limit);
        waitUntil(
            [&] { return !portal.calls.isEmpty() && inhibitor->findChildren<QDBusPendingCallWatcher*>().isEmpty(); });
        return inhibitor;
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

    static SleepInhibition& inhibition(const DesktopSleepInhibitor& asking) {
        return *asking.findChildren<SleepInhibition*>().last();
    }

    static qsizetype unansweredCalls(const QObject& asking) {
        return asking.findChildren<QDBusPendingCallWatcher*>(Qt::FindDirectChildrenOnly).size();
    }

    static qsizetype openDescriptors() { return QDir("/proc/self/fd").entryList(QDir::Files | QDir::System).size(); }

    TestBus session{"DBUS_SESSION_BUS_ADDRESS"};
    TestBus system{"DBUS_SYSTEM_BUS_ADDRESS"};
    LoginManagerLock lock;
};

TEST_F(DesktopSleepInhibitorTest, asksThePortalForAsLongAsItLasts) {
    session.start();
    system.start();
    const auto asked = portal(portalGrants);
    const auto unasked = loginManager(grants());
    const auto known = introduced(*asked);
    known->begin("Exporting…");
    known->begin("Exporting…");
    waitUntil([&] { return members(*asked).contains("Inhibit"); });
    const QDBusMessage call = asked->calls.last();
    EXPECT_EQ(call.interface(), "org.freedesktop.portal.Inhibit");
    EXPECT_EQ(call.signature(), "sua{sv}");
    EXPECT_EQ(call.arguments().at(1).toUInt(), 12U);
    EXPECT_EQ(qdbus_cast<QVariantMap>(call.arguments().at(2)), (QVariantMap{{"reason", "Exporting…"}}));
    known->end();
    waitUntil([&] { return members(*asked).contains("Close"); });
    EXPECT_EQ(asked->calls.last().interface(), "org.freedesktop.portal.Request");
    EXPECT_EQ(asked->calls.last().path(), request);
    EXPECT_EQ(members(*asked), (QStringList{"ReadAll", "Inhibit", "Close"}));
    EXPECT_TRUE(unasked->calls.isEmpty());
}

TEST_F(DesktopSleepInhibitorTest, asksThePortalThroughTheConnectionThatItKnows) {
    session.start();
    const auto asked = portal(portalGrants);
    const auto known = introduced(*asked);
    EXPECT_EQ(asked->calls.first().interface(), "org.freedesktop.portal.Settings");
    for (int round = 0; round < 3; ++round) {
        known->begin("Exporting…");
        waitUntil([&] { return members(*asked).count("Inhibit") == round + 1; });
        known->end();
        waitUntil([&] { return members(*asked).count("Close") == round + 1; });
    }
    for (const QDBusMessage& call : asked->calls) {
        EXPECT_EQ(call.service(), asked->calls.first().service());
    }
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWhereThePortalDidNotGetToKnowIt) {
    session.start();
    system.start();
    const auto refusing = portal(FakeService::refuses);
    expectTheLoginManagerIsUsed(*introduced(*refusing), *loginManager(grants()));
    EXPECT_EQ(members(*refusing), QStringList{"ReadAll"});
    EXPECT_TRUE(refusing->isCallerGone());
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWhereThereIsNoPortal) {
    session.start();
    system.start();
    const auto manager = loginManager(grants());
    DesktopSleepInhibitor inhibitor(1min);
    expectTheLoginManagerIsUsed(inhibitor, *manager);
    const QDBusMessage call = manager->calls.first();
    EXPECT_EQ(call.interface(), "org.freedesktop.login1.Manager");
    EXPECT_EQ(call.member(), "Inhibit");
    EXPECT_EQ(call.arguments(), (QVariantList{"sleep:idle", "Ambrel Recovery", "Exporting…", "block"}));
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWhereThereIsNoSessionBus) {
    system.start();
    DesktopSleepInhibitor inhibitor(1min);
    expectTheLoginManagerIsUsed(inhibitor, *loginManager(grants()));
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWhereTheSessionBusIsSilent) {
    const SilentSocket silent(session.socketPath());
    ASSERT_TRUE(silent.isListening());
    system.start();
    DesktopSleepInhibitor impatient(200ms);
    expectTheLoginManagerIsUsed(impatient, *loginManager(grants()));
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWhereThePortalIsOfNoUse) {
    session.start();
    system.start();
    for (const auto& answer : {FakeService::refuses, FakeService::talksNonsense, FakeService::isSilent}) {
        const auto useless = portal(portalThatOnlyKnows(answer));
        const auto manager = loginManager(grants());
        const auto known = introduced(*useless, 200ms);
        expectTheLoginManagerIsUsed(*known, *manager);
        EXPECT_EQ(members(*useless), (QStringList{"ReadAll", "Inhibit"}));
        // What it still grants would be held by the connection.
        EXPECT_TRUE(useless->isCallerGone());
    }
}

TEST_F(DesktopSleepInhibitorTest, nothingHappensWhereTheLoginManagerIsOfNoUse) {
    system.start();
    DesktopSleepInhibitor impatient(200ms);
    for (const auto& answer : {FakeService::refuses, FakeService::talksNonsense, FakeService::isSilent}) {
        const auto useless = loginManager(answer);
        impatient.begin("Exporting…");
        waitUntil([&] { return useless->isCallerGone(); });
        impatient.end();
        EXPECT_EQ(useless->calls.size(), 1);
    }
}

TEST_F(DesktopSleepInhibitorTest, nothingHappensWhereThereIsNoBus) {
    DesktopSleepInhibitor inhibitor(1min);
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
    DesktopSleepInhibitor inhibitor(1min);
    for (int round = 0; round < 3; ++round) {
        inhibitor.begin("Exporting…");
        // Both asked, neither answered, and the main thread goes on.
        waitUntil([&] { return unansweredCalls(inhibitor) == 1 && unansweredCalls(inhibition(inhibitor)) == 1; });
        inhibitor.end();
    }
    waitUntil([&] { return inhibitor.findChildren<SleepInhibition*>().isEmpty(); });
}

TEST_F(DesktopSleepInhibitorTest, releasesWhatThePortalGrantsTooLate) {
    session.start();
    const auto slow = portal(portalThatOnlyKnows(FakeService::isSilent));
    const auto known = introduced(*slow);
    known->begin("Exporting…");
    waitUntil([&] { return members(*slow).contains("Inhibit"); });
    known->end();
    QCoreApplication::processEvents();
    EXPECT_FALSE(members(*slow).contains("Close"));
    slow->answer = portalGrants;
    slow->answerLate();
    waitUntil([&] { return members(*slow).contains("Close"); });
    waitUntil([&] { return known->children().isEmpty(); });
}

TEST_F(DesktopSleepInhibitorTest, releasesWhatTheLoginManagerGrantsTooLate) {
    system.start();
    const auto slow = loginManager(FakeService::isSilent);
    DesktopSleepInhibitor inhibitor(1min);
    inhibitor.begin("Exporting…");
    waitUntil([&] { return !slow->calls.isEmpty(); });
    inhibitor.end();
    slow->answer = grants();
    slow->answerLate();
    waitUntil([&] { return lock.isReleased(); });
    waitUntil([&] { return slow->isCallerGone(); });
}

TEST_F(DesktopSleepInhibitorTest, asksNobodyForWhatIsOverAlready) {
    system.start();
    const auto manager = loginManager(grants());
    DesktopSleepInhibitor inhibitor(1min);
    inhibitor.begin("Inspecting…");
    inhibitor.end();
    inhibitor.begin("Exporting…");
    waitUntil([&] { return !manager->calls.isEmpty(); });
    inhibitor.end();
    waitUntil([&] { return lock.isReleased(); });
    ASSERT_EQ(manager->calls.size(), 1);
    EXPECT_EQ(manager->calls.first().arguments().at(2), "Exporting…");
}

TEST_F(DesktopSleepInhibitorTest, releasesEverythingWhenItGoesAway) {
    session.start();
    const auto asked = portal(portalGrants);
    auto gone = introduced(*asked);
    gone->begin("Exporting…");
    waitUntil([&] { return members(*asked).contains("Inhibit"); });
    EXPECT_FALSE(asked->isCallerGone());
    gone.reset();
    waitUntil([&] { return asked->isCallerGone(); });
}

TEST_F(DesktopSleepInhibitorTest, survivesTheEndOfTheBus) {
    auto passing = std::make_unique<TestBus>("DBUS_SESSION_BUS_ADDRESS");
    passing->start();
    std::unique_ptr<DesktopSleepInhibitor> known;
    {
        const FakeService asked(passing->address(), "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                portalGrants);
        known = introduced(asked);
        known->begin("Exporting…");
        waitUntil([&] { return members(asked).contains("Inhibit"); });
    }
    passing.reset();
    known->end();
    waitUntil([&] { return known->children().isEmpty(); });
    known->begin("Exporting…");
    known->end();
    waitUntil([&] { return known->children().isEmpty(); });
}

TEST_F(DesktopSleepInhibitorTest, leavesNoDescriptorOpen) {
    system.start();
    const auto manager = loginManager(grants());
    DesktopSleepInhibitor inhibitor(1min);
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
