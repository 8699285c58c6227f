#include "AmbrelRecoveryApp/Desktop/DesktopPreferences.h"

#include "../Support/SilentSocket.h"
#include "../Support/TestBus.h"
#include "AmbrelRecoveryApp/Controls/Motion.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/ScreenTransition.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "FakeService.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QMap>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace {

using namespace std::chrono_literals;

using Groups = QMap<QString, QVariantMap>;

constexpr int generousMilliseconds = 60'000;

const QString settingsInterface = "org.freedesktop.portal.Settings";

class DesktopPreferencesTest : public testing::Test {
protected:
    DesktopPreferencesTest() { qDBusRegisterMetaType<Groups>(); }

    ~DesktopPreferencesTest() override {
        waitUntil([] { return BackgroundTask::waitForAll(0ms); });
        Motion::setReduced(false);
        RecoveryPalette::setContrastIncreased(false);
        TextScale::setFactor(1);
    }

    std::unique_ptr<FakeService> portal(FakeService::Answer answer) {
        return std::make_unique<FakeService>(session.address(), "org.freedesktop.portal.Desktop",
                                             "/org/freedesktop/portal/desktop", std::move(answer));
    }

    std::unique_ptr<FakeService> portalWith(const Groups& groups) {
        return portal([groups](const QDBusMessage& call) { return call.createReply(QVariant::fromValue(groups)); });
    }

    static void change(FakeService& portal, const QString& group, const QString& key, const QVariant& value) {
        portal.emitSignal(settingsInterface, "SettingChanged", {group, key, QVariant::fromValue(QDBusVariant(value))});
    }

    bool isReduced() const { return Motion::duration(widget) == 0ms; }

    static void waitForAnswer(const FakeService& portal, const DesktopPreferences& preference) {
        waitUntil(
            [&] { return !portal.calls.isEmpty() && preference.findChildren<QDBusPendingCallWatcher*>().isEmpty(); });
    }

    template<typename Condition>
    static void waitUntil(Condition condition) {
        EXPECT_TRUE(QTest::qWaitFor(condition, generousMilliseconds));
    }

    TestBus session{"DBUS_SESSION_BUS_ADDRESS"};
    QWidget widget;
};

} // namespace

TEST_F(DesktopPreferencesTest, readsReducedMotionFromWhicheverSettingTheDesktopHas) {
    session.start();
    const std::vector<Groups> wishes{
        {{"org.freedesktop.appearance", {{"color-scheme", 1U}, {"reduced-motion", 1U}}}},
        {{"org.gnome.desktop.interface", {{"enable-animations", false}, {"font-name", "Sans"}}}},
        {{"org.kde.kdeglobals.KDE", {{"AnimationDurationFactor", 0.0}}}},
        {{"org.kde.kdeglobals.KDE", {{"AnimationDurationFactor", "0"}}}},
        {{"org.freedesktop.appearance", {{"reduced-motion", 0U}}},
         {"org.gnome.desktop.interface", {{"enable-animations", false}}}},
    };
    for (const Groups& groups : wishes) {
        Motion::setReduced(false);
        const auto asked = portalWith(groups);
        const DesktopPreferences preference(1min);
        waitUntil([this] { return isReduced(); });
        ASSERT_EQ(asked->calls.size(), 1);
        EXPECT_EQ(asked->calls.first().interface(), settingsInterface);
        EXPECT_EQ(asked->calls.first().member(), "ReadAll");
        EXPECT_EQ(asked->calls.first().signature(), "as");
    }
}

TEST_F(DesktopPreferencesTest, makesTheNextTransitionInstantaneousIfMotionIsReduced) {
    session.start();
    const auto asked = portalWith({{"org.gnome.desktop.interface", {{"enable-animations", false}}}});
    QWidget window;
    ScreenTransition transition(&window);
    window.show();
    transition.begin(window.rect());
    EXPECT_TRUE(transition.isVisible());
    waitUntil([&] { return !transition.isVisible(); });
    const DesktopPreferences preference(1min);
    waitUntil([this] { return isReduced(); });
    transition.begin(window.rect());
    EXPECT_FALSE(transition.isVisible());
}

TEST_F(DesktopPreferencesTest, allowsMotionUnlessTheDesktopForbidsIt) {
    session.start();
    const std::vector<Groups> wishes{
        {},
        {{"org.freedesktop.appearance", {{"reduced-motion", 0U}}},
         {"org.gnome.desktop.interface", {{"enable-animations", true}}},
         {"org.kde.kdeglobals.KDE", {{"AnimationDurationFactor", "0.5"}}}},
        // None of them of the right type.
        {{"org.freedesktop.appearance", {{"reduced-motion", "1"}}},
         {"org.gnome.desktop.interface", {{"enable-animations", "false"}}},
         {"org.kde.kdeglobals.KDE", {{"AnimationDurationFactor", "none"}}}},
    };
    for (const Groups& groups : wishes) {
        const auto asked = portalWith(groups);
        const DesktopPreferences preference(1min);
        waitForAnswer(*asked, preference);
        EXPECT_FALSE(isReduced());
    }
}

TEST_F(DesktopPreferencesTest, allowsMotionIfThePortalIsUseless) {
    session.start();
    for (const auto& answer : {FakeService::refuses, FakeService::talksNonsense, FakeService::isSilent}) {
        const auto useless = portal(answer);
        const DesktopPreferences preference(200ms);
        waitForAnswer(*useless, preference);
        EXPECT_FALSE(isReduced());
    }
}

TEST_F(DesktopPreferencesTest, followsChangesOfReducedMotion) {
    session.start();
    const auto asked = portalWith({{"org.freedesktop.appearance", {{"reduced-motion", 1U}}}});
    const DesktopPreferences preference(1min);
    waitUntil([this] { return isReduced(); });
    change(*asked, "org.freedesktop.appearance", "color-scheme", 0U);
    change(*asked, "org.freedesktop.appearance", "reduced-motion", 0U);
    waitUntil([this] { return !isReduced(); });
    change(*asked, "org.gnome.desktop.interface", "enable-animations", false);
    waitUntil([this] { return isReduced(); });
}

TEST_F(DesktopPreferencesTest, followsARestartedPortal) {
    session.start();
    auto asked = portalWith({{"org.freedesktop.appearance", {{"reduced-motion", 1U}}}});
    const DesktopPreferences preference(1min);
    waitUntil([this] { return isReduced(); });
    asked.reset();
    asked = portalWith({});
    change(*asked, "org.freedesktop.appearance", "reduced-motion", 0U);
    waitUntil([this] { return !isReduced(); });
}

TEST_F(DesktopPreferencesTest, trustsOnlyThePortal) {
    session.start();
    const auto asked = portalWith({});
    FakeService forger(session.address(), "org.example.Forger", "/org/example/Forger", FakeService::refuses);
    const DesktopPreferences preference(1min);
    waitForAnswer(*asked, preference);
    const QString receiver = asked->calls.first().service();
    forger.forgeSignal(receiver, "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged",
                       {"org.freedesktop.portal.Desktop", asked->uniqueName(), forger.uniqueName()});
    forger.forgeSignal(receiver, "/org/freedesktop/portal/desktop", settingsInterface, "SettingChanged",
                       {"org.freedesktop.appearance", "reduced-motion", QVariant::fromValue(QDBusVariant(1U))});
    change(*asked, "org.gnome.desktop.interface", "enable-animations", false);
    waitUntil([this] { return isReduced(); });
    change(*asked, "org.gnome.desktop.interface", "enable-animations", true);
    waitUntil([this] { return !isReduced(); });
}

TEST_F(DesktopPreferencesTest, neverWaitsForASilentOrMissingBus) {
    {
        const DesktopPreferences withoutBus(1min);
        waitUntil([] { return BackgroundTask::waitForAll(0ms); });
    }
    const SilentSocket silent(session.socketPath());
    ASSERT_TRUE(silent.isListening());
    const DesktopPreferences preference(1min);
    // Asked, not answered, and the main thread goes on.
    waitUntil([&] { return !preference.findChildren<QDBusPendingCallWatcher*>().isEmpty(); });
    EXPECT_FALSE(isReduced());
}

TEST_F(DesktopPreferencesTest, leavesTheBusWhenItIsDestroyed) {
    session.start();
    const auto asked = portalWith({{"org.freedesktop.appearance", {{"reduced-motion", 1U}}}});
    auto preference = std::make_unique<DesktopPreferences>(1min);
    waitUntil([this] { return isReduced(); });
    EXPECT_FALSE(asked->isCallerGone());
    preference.reset();
    waitUntil([&] { return asked->isCallerGone(); });
}

TEST_F(DesktopPreferencesTest, readsMoreContrastFromWhicheverSettingTheDesktopHas) {
    session.start();
    const std::vector<Groups> wishes{
        {{"org.freedesktop.appearance", {{"contrast", 1U}}}},
        {{"org.gnome.desktop.a11y.interface", {{"high-contrast", true}}}},
    };
    for (const Groups& groups : wishes) {
        RecoveryPalette::setContrastIncreased(false);
        const auto asked = portalWith(groups);
        const DesktopPreferences preferences(1min);
        waitUntil([] { return RecoveryPalette::isContrastIncreased(); });
    }
}

TEST_F(DesktopPreferencesTest, followsAndReportsChangesOfContrastAndTextSize) {
    session.start();
    const auto asked = portalWith({{"org.freedesktop.appearance", {{"contrast", 0U}}}});
    const DesktopPreferences preferences(1min);
    waitForAnswer(*asked, preferences);
    QSignalSpy told(&preferences, &DesktopPreferences::lookChanged);
    change(*asked, "org.freedesktop.appearance", "contrast", 1U);
    waitUntil([&] { return told.count() == 1; });
    EXPECT_TRUE(RecoveryPalette::isContrastIncreased());
    change(*asked, "org.gnome.desktop.interface", "text-scaling-factor", 1.25);
    waitUntil([&] { return told.count() == 2; });
    EXPECT_EQ(TextScale::factor(), 1.25);
    // Neither of these is a change of the look.
    change(*asked, "org.gnome.desktop.interface", "text-scaling-factor", 1.25);
    change(*asked, "org.freedesktop.appearance", "reduced-motion", 1U);
    waitUntil([this] { return isReduced(); });
    EXPECT_EQ(told.count(), 2);
    change(*asked, "org.freedesktop.appearance", "contrast", 0U);
    change(*asked, "org.gnome.desktop.interface", "text-scaling-factor", 1.0);
    waitUntil([&] { return told.count() == 4; });
    EXPECT_FALSE(RecoveryPalette::isContrastIncreased());
    EXPECT_EQ(TextScale::factor(), 1);
}

TEST_F(DesktopPreferencesTest, limitsTheTextSizeToTheSupportedRange) {
    session.start();
    const std::vector<std::pair<QVariant, double>> factors{
        {0.5, 1}, {3.0, 1.5}, {QStringLiteral("1.25"), 1}, {std::numeric_limits<double>::quiet_NaN(), 1}};
    for (const auto& [value, expected] : factors) {
        TextScale::setFactor(1.1);
        const auto asked = portalWith({{"org.gnome.desktop.interface", {{"text-scaling-factor", value}}}});
        const DesktopPreferences preferences(1min);
        waitForAnswer(*asked, preferences);
        EXPECT_EQ(TextScale::factor(), expected);
    }
}
