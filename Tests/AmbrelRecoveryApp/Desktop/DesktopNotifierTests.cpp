#include "AmbrelRecoveryApp/Desktop/DesktopNotifier.h"

#include "../Support/SilentSocket.h"
#include "../Support/TestBus.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "FakeService.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>
#include <QTest>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr int generousMilliseconds = 60'000;
constexpr uint identifier = 7;
const char* const interface = "org.freedesktop.Notifications";

class DesktopNotifierTest : public testing::Test {
protected:
    DesktopNotifierTest() {
        QObject::connect(&notifications, &DesktopNotifier::activated, [this] { ++activations; });
        QObject::connect(&impatient, &DesktopNotifier::activated, [this] { ++activations; });
    }

    ~DesktopNotifierTest() override {
        waitUntil([] { return BackgroundTask::waitForAll(0ms); });
    }

    static std::optional<QDBusMessage> shows(const QDBusMessage& call) {
        return answerOf(call, {"body", "actions", "body-markup"});
    }

    static std::optional<QDBusMessage> showsPlainText(const QDBusMessage& call) { return answerOf(call, {"body"}); }

    std::unique_ptr<FakeService> server(FakeService::Answer answer) {
        return std::make_unique<FakeService>(session.address(), "org.freedesktop.Notifications",
                                             "/org/freedesktop/Notifications", std::move(answer));
    }

    static void show(DesktopNotifier& notifier) { notifier.show("Export complete"); }

    static QStringList members(const FakeService& server) {
        QStringList members;
        for (const QDBusMessage& call : server.calls) {
            members << call.member();
        }
        return members;
    }

    static qsizetype unansweredCalls(const DesktopNotifier& asking) {
        return asking.findChildren<QDBusPendingCallWatcher*>().size();
    }

    void showAndWait(const FakeService& server, const QString& text = "Export complete") {
        notifications.show(text);
        waitUntil([&] { return members(server).contains("Notify"); });
        // The answer is on its way; what is sent behind it comes behind it.
        QTest::qWait(0);
    }

    template<typename Condition>
    static void waitUntil(Condition condition) {
        EXPECT_TRUE(QTest::qWaitFor(condition, generousMilliseconds));
    }

    TestBus session{"DBUS_SESSION_BUS_ADDRESS"};
    DesktopNotifier notifications{1min};
    DesktopNotifier impatient{200ms};
    int activations = 0;

private:
    static QDBusMessage answerOf(const QDBusMessage& call, const QStringList& capabilities) {
        if (call.member() == "GetCapabilities") {
            return call.createReply(QVariantList{capabilities});
        }
        return call.member() == "Notify" ? call.createReply(QVariantList{identifier}) : call.createReply();
    }
};

TEST_F(DesktopNotifierTest, showsTheTextUntilItIsWithdrawn) {
    QGuiApplication::setDesktopFileName("com.example.program");
    session.start();
    const auto shown = server(shows);
    showAndWait(*shown);
    const QDBusMessage call = shown->calls.last();
    EXPECT_EQ(call.signature(), "susssasa{sv}i");
    EXPECT_EQ(call.arguments().at(0), "Ambrel Recovery");
    EXPECT_EQ(call.arguments().at(1), 0U);
    EXPECT_EQ(call.arguments().at(2), "com.example.program");
    EXPECT_EQ(call.arguments().at(3), "Ambrel Recovery");
    EXPECT_EQ(call.arguments().at(4), "Export complete");
    EXPECT_EQ(call.arguments().at(5).toStringList().first(), "default");
    EXPECT_EQ(qdbus_cast<QVariantMap>(call.arguments().at(6)), (QVariantMap{{"desktop-entry", "com.example.program"}}));
    EXPECT_FALSE(shown->isCallerGone());
    notifications.withdraw();
    waitUntil([&] { return shown->isCallerGone(); });
    EXPECT_EQ(members(*shown), (QStringList{"GetCapabilities", "Notify", "CloseNotification"}));
    EXPECT_EQ(shown->calls.last().arguments(), QVariantList{identifier});
}

TEST_F(DesktopNotifierTest, aTextIsNeverTakenForMarkup) {
    session.start();
    auto shown = server(shows);
    showAndWait(*shown, "<a href=\"x\">A & B</a>");
    EXPECT_EQ(shown->calls.last().arguments().at(4), "&lt;a href=\"x\"&gt;A &amp; B&lt;/a&gt;");
    shown.reset();
    const auto plain = server(showsPlainText);
    showAndWait(*plain, "<a href=\"x\">A & B</a>");
    EXPECT_EQ(plain->calls.last().arguments().at(4), "<a href=\"x\">A & B</a>");
}

TEST_F(DesktopNotifierTest, reportsOnlyAClickOnTheNotification) {
    session.start();
    const auto shown = server(shows);
    showAndWait(*shown);
    shown->emitSignal(interface, "ActionInvoked", {identifier + 1, "default"});
    shown->emitSignal(interface, "ActionInvoked", {identifier, "other"});
    shown->emitSignal(interface, "ActionInvoked", {QString("7"), QStringList{"default"}});
    shown->emitSignal(interface, "ActionInvoked", {identifier, "default"});
    waitUntil([&] { return activations > 0; });
    EXPECT_EQ(activations, 1);
}

TEST_F(DesktopNotifierTest, trustsOnlyTheService) {
    session.start();
    const auto shown = server(shows);
    FakeService forger(session.address(), "org.example.Forger", "/org/example/Forger", FakeService::refuses);
    showAndWait(*shown);
    const QString receiver = shown->calls.first().service();
    const QString path = "/org/freedesktop/Notifications";
    forger.forgeSignal(receiver, path, interface, "ActionInvoked", {identifier, "default"});
    forger.forgeSignal(receiver, path, interface, "NotificationClosed", {identifier, 2U});
    shown->emitSignal(interface, "ActionInvoked", {identifier, "default"});
    waitUntil([&] { return activations > 0; });
    EXPECT_EQ(activations, 1);
    notifications.withdraw();
    waitUntil([&] { return members(*shown).contains("CloseNotification"); });
}

TEST_F(DesktopNotifierTest, aSecondNotificationReplacesTheFirst) {
    session.start();
    const auto shown = server(shows);
    showAndWait(*shown, "Snapshots");
    show(notifications);
    waitUntil([&] { return members(*shown).count("Notify") == 2; });
    waitUntil([&] { return members(*shown).contains("CloseNotification"); });
    waitUntil([&] { return shown->isCallerGone(); });
    EXPECT_EQ(members(*shown).count("CloseNotification"), 1);
}

TEST_F(DesktopNotifierTest, theTokenThatBringsTheWindowForwardIsThereDuringTheClickOnly) {
    QByteArray token;
    QObject::connect(&notifications, &DesktopNotifier::activated, [&] { token = qgetenv("XDG_ACTIVATION_TOKEN"); });
    session.start();
    const auto shown = server(shows);
    showAndWait(*shown);
    shown->emitSignal(interface, "ActivationToken", {identifier + 1, "of another"});
    shown->emitSignal(interface, "ActivationToken", {identifier, "of this one"});
    shown->emitSignal(interface, "ActionInvoked", {identifier, "default"});
    waitUntil([&] { return activations == 1; });
    EXPECT_EQ(token, "of this one");
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(DesktopNotifierTest, aNotificationThatTheUserClosedIsNotWithdrawn) {
    session.start();
    const auto shown = server(shows);
    showAndWait(*shown);
    shown->emitSignal(interface, "NotificationClosed", {identifier + 1, 2U});
    shown->emitSignal(interface, "NotificationClosed", {identifier, 2U});
    waitUntil([&] { return shown->isCallerGone(); });
    notifications.withdraw();
    waitUntil([&] { return notifications.children().isEmpty(); });
    EXPECT_EQ(members(*shown), (QStringList{"GetCapabilities", "Notify"}));
}

TEST_F(DesktopNotifierTest, nothingMoreIsHeardOfANotificationThatWasClosed) {
    session.start();
    const auto shown = server(shows);
    showAndWait(*shown);
    shown->emitSignal(interface, "NotificationClosed", {identifier, 2U});
    shown->emitSignal(interface, "NotificationClosed", {identifier, 2U});
    shown->emitSignal(interface, "ActionInvoked", {identifier, "default"});
    waitUntil([&] { return shown->isCallerGone(); });
    EXPECT_EQ(activations, 0);
}

TEST_F(DesktopNotifierTest, whatIsShownIsTakenAwayWhenItGoesAway) {
    session.start();
    const auto shown = server(shows);
    auto gone = std::make_unique<DesktopNotifier>(1min);
    show(*gone);
    waitUntil([&] { return members(*shown).contains("Notify") && unansweredCalls(*gone) == 0; });
    gone.reset();
    waitUntil([&] { return members(*shown).contains("CloseNotification"); });
    EXPECT_EQ(shown->calls.last().arguments(), QVariantList{identifier});
    waitUntil([&] { return shown->isCallerGone(); });
}

TEST_F(DesktopNotifierTest, whatIsShownTooLateIsTakenAway) {
    session.start();
    const auto slow =
        server([](const QDBusMessage& call) { return call.member() == "Notify" ? std::nullopt : shows(call); });
    showAndWait(*slow);
    notifications.withdraw();
    slow->answer = shows;
    slow->answerLate();
    waitUntil([&] { return slow->isCallerGone(); });
    EXPECT_EQ(members(*slow), (QStringList{"GetCapabilities", "Notify", "CloseNotification"}));
}

TEST_F(DesktopNotifierTest, aNotificationWithdrawnBeforeItsRequestIsNeverShown) {
    session.start();
    const auto slow = server(FakeService::isSilent);
    show(notifications);
    waitUntil([&] { return !slow->calls.isEmpty(); });
    notifications.withdraw();
    slow->answer = shows;
    slow->answerLate();
    waitUntil([&] { return slow->isCallerGone(); });
    EXPECT_EQ(members(*slow), QStringList{"GetCapabilities"});
}

TEST_F(DesktopNotifierTest, doesNothingIfTheServiceIsUseless) {
    session.start();
    for (const auto& useless : {FakeService::refuses, FakeService::talksNonsense, FakeService::isSilent}) {
        const auto first = server(useless);
        show(impatient);
        waitUntil([&] { return first->isCallerGone(); });
        EXPECT_EQ(members(*first), QStringList{"GetCapabilities"});
    }
    for (const auto& useless : {FakeService::refuses, FakeService::talksNonsense, FakeService::isSilent}) {
        const auto second = server(
            [useless](const QDBusMessage& call) { return call.member() == "Notify" ? useless(call) : shows(call); });
        show(impatient);
        waitUntil([&] { return members(*second).contains("Notify") && second->isCallerGone(); });
        EXPECT_EQ(members(*second), (QStringList{"GetCapabilities", "Notify"}));
    }
    impatient.withdraw();
    waitUntil([&] { return impatient.children().isEmpty(); });
    EXPECT_EQ(activations, 0);
}

TEST_F(DesktopNotifierTest, doesNothingWithoutAService) {
    session.start();
    show(impatient);
    waitUntil([] { return BackgroundTask::waitForAll(0ms); });
    impatient.withdraw();
    waitUntil([&] { return impatient.children().isEmpty(); });
}

TEST_F(DesktopNotifierTest, doesNothingWithoutABus) {
    show(notifications);
    notifications.withdraw();
    waitUntil([&] { return notifications.children().isEmpty(); });
}

TEST_F(DesktopNotifierTest, neverWaitsForABusThatDoesNotAnswer) {
    const SilentSocket silent(session.socketPath());
    ASSERT_TRUE(silent.isListening());
    show(notifications);
    // Asked, not answered, and the main thread goes on.
    waitUntil([&] { return unansweredCalls(notifications) == 1; });
    notifications.withdraw();
    waitUntil([&] { return notifications.children().isEmpty(); });
}

} // namespace
