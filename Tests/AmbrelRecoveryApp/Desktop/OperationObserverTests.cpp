#include "AmbrelRecoveryApp/Desktop/OperationObserver.h"

#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelRecoveryApp/Desktop/OperationNotifier.h"
#include "AmbrelRecoveryApp/Desktop/RecoverySleepInhibitor.h"

#include <QTest>

namespace {

class RecordingSleepInhibitor final : public RecoverySleepInhibitor {
public:
    void begin(const QString& reason) override {
        isHeld = true;
        reasons.append(reason);
    }
    void end() override { isHeld = false; }

    bool isHeld = false;
    QStringList reasons;
};

class RecordingNotifications final : public OperationNotifier {
public:
    void show(const QString& text, std::function<void()> activated) override {
        shown = text;
        pick = std::move(activated);
    }
    void withdraw() override { shown.reset(); }

    std::optional<QString> shown;
    std::function<void()> pick;
};

class OperationObserverTest : public RecoveryViewModelTestCase {
protected:
    OperationObserverTest() {
        makeModel();
        guard = std::make_unique<OperationObserver>(*model, &window, inhibitor, notifications);
    }

    void lookElsewhere() { activate(elsewhere); }

    static void activate(QWidget& widget) {
        widget.show();
        widget.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
    }

    void beginInspection() {
        choosePackage();
        type("secret");
        model->inspectBackup();
    }

    /// Has the inspected package exported by an engine that was made ready before.
    void beginExport() {
        chooseDestination(path("Ambrel Recovered"));
        ASSERT_EQ(model->phase(), Phase::exporting);
    }

    static void settle() { QCoreApplication::processEvents(); }

    QWidget window;
    QWidget elsewhere;
    RecordingSleepInhibitor inhibitor;
    RecordingNotifications notifications;
    std::unique_ptr<OperationObserver> guard;
};

TEST_F(OperationObserverTest, keepsTheMachineAwakeWhileAnInspectionRuns) {
    setEngineThatWaits();
    settle();
    EXPECT_TRUE(inhibitor.reasons.isEmpty());
    beginInspection();
    waitUntilEngineRuns();
    EXPECT_TRUE(inhibitor.isHeld);
    EXPECT_EQ(inhibitor.reasons.first(), QStringLiteral("Inspecting the backup…"));
    model->cancelOperation();
    settle();
    EXPECT_FALSE(inhibitor.isHeld);
}

TEST_F(OperationObserverTest, keepsTheMachineAwakeWhileAnExportRuns) {
    inspect(inspectionDocument());
    settle();
    EXPECT_FALSE(inhibitor.isHeld);
    inhibitor.reasons.clear();
    setEngineThatWaits();
    beginExport();
    waitUntilEngineRuns();
    EXPECT_TRUE(inhibitor.isHeld);
    EXPECT_EQ(inhibitor.reasons.first(), QStringLiteral("Exporting…"));
    model->startAgain();
    settle();
    EXPECT_FALSE(inhibitor.isHeld);
}

TEST_F(OperationObserverTest, letsTheMachineSleepWhenItIsDestroyed) {
    setEngineThatWaits();
    beginInspection();
    waitUntilEngineRuns();
    notifications.shown = QStringLiteral("anything");
    guard.reset();
    EXPECT_FALSE(inhibitor.isHeld);
    EXPECT_FALSE(notifications.shown);
}

TEST_F(OperationObserverTest, notifiesOfTheEndOfAnInspection) {
    lookElsewhere();
    inspect(inspectionDocument());
    settle();
    EXPECT_EQ(notifications.shown, QStringLiteral("Snapshots"));
    EXPECT_FALSE(inhibitor.isHeld);
}

TEST_F(OperationObserverTest, notifiesOfTheEndOfAnExport) {
    inspect(inspectionDocument());
    lookElsewhere();
    setEngineThatPrints(exportDocument());
    beginExport();
    waitForPhase(Phase::complete);
    settle();
    EXPECT_EQ(notifications.shown, QStringLiteral("Export complete"));
}

TEST_F(OperationObserverTest, notifiesOfAFailureWithTheTitleOfItsError) {
    lookElsewhere();
    setEngineThatFails("did not unlock");
    beginInspection();
    waitUntil([this] { return model->presentedError().has_value(); });
    settle();
    EXPECT_EQ(notifications.shown, model->presentedError()->title);
    EXPECT_FALSE(inhibitor.isHeld);
}

TEST_F(OperationObserverTest, doesNotNotifyWhileTheWindowIsActive) {
    activate(window);
    inspect(inspectionDocument());
    settle();
    EXPECT_FALSE(notifications.shown);
}

TEST_F(OperationObserverTest, doesNotNotifyOfACancellation) {
    lookElsewhere();
    inspect(inspectionDocument());
    settle();
    notifications.withdraw();
    setEngineThatWaits();
    beginExport();
    waitUntilEngineRuns();
    model->cancelOperation();
    settle();
    EXPECT_FALSE(notifications.shown);
    type("again");
    model->inspectBackup();
    waitUntilEngineRuns();
    model->cancelOperation();
    settle();
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_FALSE(notifications.shown);
}

TEST_F(OperationObserverTest, doesNotNotifyOfAnErrorOutsideAnOperation) {
    lookElsewhere();
    untilAnnounced([this] { model->acceptPackage(path("engine")); });
    settle();
    ASSERT_TRUE(model->presentedError());
    EXPECT_FALSE(notifications.shown);
}

TEST_F(OperationObserverTest, withdrawsTheNotificationWhenTheWindowBecomesActive) {
    lookElsewhere();
    inspect(inspectionDocument());
    settle();
    ASSERT_TRUE(notifications.shown);
    activate(window);
    EXPECT_FALSE(notifications.shown);
}

TEST_F(OperationObserverTest, bringsTheWindowForwardWhenTheNotificationIsPicked) {
    window.showMinimized();
    lookElsewhere();
    inspect(inspectionDocument());
    settle();
    ASSERT_TRUE(notifications.pick);
    notifications.pick();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(window.isMinimized());
    EXPECT_FALSE(notifications.shown);
}

} // namespace
