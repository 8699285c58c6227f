#pragma once

#include "../Support/TestBus.h"
#include "AmbrelRecoveryApp/Desktop/DesktopSleepInhibitor.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "FakeService.h"
#include "LoginManagerLock.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDir>
#include <QTest>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>

/// Runs a sleep inhibitor against a portal and a login manager of the test.
class DesktopSleepInhibitorTestCase : public testing::Test {
protected:
    static constexpr int generousMilliseconds = 60'000;
    static inline const QString request = QStringLiteral("/org/freedesktop/portal/desktop/request/1_1/t");

    ~DesktopSleepInhibitorTestCase() override {
        waitUntil([] { return BackgroundTask::waitForAll(std::chrono::milliseconds::zero()); });
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
    static std::unique_ptr<DesktopSleepInhibitor>
    introduced(const FakeService& portal, std::chrono::milliseconds limit = std::chrono::minutes(1)) {
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

    static qsizetype unansweredCalls(const DesktopSleepInhibitor& asking) {
        return asking.findChildren<QDBusPendingCallWatcher*>().size();
    }

    static qsizetype openDescriptors() { return QDir("/proc/self/fd").entryList(QDir::Files | QDir::System).size(); }

    TestBus session{"DBUS_SESSION_BUS_ADDRESS"};
    TestBus system{"DBUS_SYSTEM_BUS_ADDRESS"};
    LoginManagerLock lock;
};
