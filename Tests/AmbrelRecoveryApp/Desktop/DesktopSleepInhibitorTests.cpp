#include "AmbrelRecoveryApp/Desktop/DesktopSleepInhibitor.h"

#include "../Support/SilentSocket.h"
#include "../Support/TestBus.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "DesktopSleepInhibitorTestCase.h"
#include "FakeService.h"

#include <QDBusArgument>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <utility>

namespace {

using namespace std::chrono_literals;

using DesktopSleepInhibitorTest = DesktopSleepInhibitorTestCase;

TEST_F(DesktopSleepInhibitorTest, asksThePortalUntilTheOperationEnds) {
    session.start();
    const auto asked = portal(portalGrants);
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
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerAlthoughThePortalGrants) {
    session.start();
    system.start();
    const auto asked = portal(portalGrants);
    const auto known = introduced(*asked);
    expectTheLoginManagerIsUsed(*known, *loginManager(grants()));
    waitUntil([&] { return members(*asked).contains("Close"); });
    EXPECT_EQ(members(*asked), (QStringList{"ReadAll", "Inhibit", "Close"}));
}

TEST_F(DesktopSleepInhibitorTest, asksThePortalThroughTheConnectionThatThePortalKnows) {
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

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerIfThePortalDoesNotKnowIt) {
    session.start();
    system.start();
    const auto refusing = portal(FakeService::refuses);
    expectTheLoginManagerIsUsed(*introduced(*refusing), *loginManager(grants()));
    EXPECT_EQ(members(*refusing), QStringList{"ReadAll"});
    EXPECT_TRUE(refusing->isCallerGone());
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWithoutAPortal) {
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

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerWithoutASessionBus) {
    system.start();
    DesktopSleepInhibitor inhibitor(1min);
    expectTheLoginManagerIsUsed(inhibitor, *loginManager(grants()));
}

TEST_F(DesktopSleepInhibitorTest, asksTheLoginManagerIfTheSessionBusIsSilent) {
    const SilentSocket silent(session.socketPath());
    ASSERT_TRUE(silent.isListening());
    system.start();
    DesktopSleepInhibitor impatient(200ms);
    expectTheLoginManagerIsUsed(impatient, *loginManager(grants()));
}

TEST_F(DesktopSleepInhibitorTest, leavesAPortalThatIsUseless) {
    session.start();
    system.start();
    for (const auto& answer : {FakeService::refuses, FakeService::talksNonsense, FakeService::isSilent}) {
        const auto useless = portal(portalThatOnlyKnows(answer));
        const auto manager = loginManager(grants());
        const auto known = introduced(*useless, 200ms);
        expectTheLoginManagerIsUsed(*known, *manager);
        // What it still grants would be held by the connection.
        waitUntil([&] { return useless->isCallerGone(); });
        EXPECT_EQ(members(*useless), (QStringList{"ReadAll", "Inhibit"}));
        manager->calls.clear();
        expectTheLoginManagerIsUsed(*known, *manager);
        EXPECT_EQ(members(*useless), (QStringList{"ReadAll", "Inhibit"}));
    }
}

TEST_F(DesktopSleepInhibitorTest, nothingHappensIfTheLoginManagerIsOfNoUse) {
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

TEST_F(DesktopSleepInhibitorTest, doesNothingWithoutABus) {
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
        waitUntil([&] { return unansweredCalls(inhibitor) == 2; });
        inhibitor.end();
        // What is over is asked for no more.
        EXPECT_EQ(unansweredCalls(inhibitor), 1);
    }
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

TEST_F(DesktopSleepInhibitorTest, doesNotAskForAnOperationThatIsAlreadyOver) {
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

TEST_F(DesktopSleepInhibitorTest, releasesEverythingWhenItIsDestroyed) {
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
