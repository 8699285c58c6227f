#include "AmbrelRecoveryApp/Desktop/OperationObserver.h"

#include "../Support/RecoveryViewModelTestCase.h"

#include <QTest>

namespace {

class OperationObserverTest : public RecoveryViewModelTestCase {
protected:
    OperationObserverTest() {
        makeModel();
        observer = std::make_unique<OperationObserver>(*model, window);
        const OperationObserver* const told = observer.get();
        QObject::connect(told, &OperationObserver::operationBegan, [this](const QString& reason) {
            isAwake = true;
            reasons.append(reason);
        });
        QObject::connect(told, &OperationObserver::operationEnded, [this] { isAwake = false; });
        QObject::connect(told, &OperationObserver::notificationWanted, [this](const QString& text) { shown = text; });
        QObject::connect(told, &OperationObserver::notificationOutdated, [this] { shown.reset(); });
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
    std::unique_ptr<OperationObserver> observer;
    bool isAwake = false;
    QStringList reasons;
    /// The notification that is to be shown.
    std::optional<QString> shown;
};

TEST_F(OperationObserverTest, keepsTheMachineAwakeWhileAnInspectionRuns) {
    setEngineThatWaits();
    settle();
    EXPECT_TRUE(reasons.isEmpty());
    beginInspection();
    waitUntilEngineRuns();
    EXPECT_TRUE(isAwake);
    EXPECT_EQ(reasons.first(), QStringLiteral("Inspecting the backup…"));
    model->cancelOperation();
    settle();
    EXPECT_FALSE(isAwake);
}

TEST_F(OperationObserverTest, keepsTheMachineAwakeWhileAnExportRuns) {
    inspect(inspectionDocument());
    settle();
    EXPECT_FALSE(isAwake);
    reasons.clear();
    setEngineThatWaits();
    beginExport();
    waitUntilEngineRuns();
    EXPECT_TRUE(isAwake);
    EXPECT_EQ(reasons.first(), QStringLiteral("Exporting…"));
    model->startAgain();
    settle();
    EXPECT_FALSE(isAwake);
}

TEST_F(OperationObserverTest, notifiesOfTheEndOfAnInspection) {
    lookElsewhere();
    inspect(inspectionDocument());
    settle();
    EXPECT_EQ(shown, QStringLiteral("Snapshots"));
    EXPECT_FALSE(isAwake);
}

TEST_F(OperationObserverTest, notifiesOfTheEndOfAnExport) {
    inspect(inspectionDocument());
    lookElsewhere();
    setEngineThatPrints(exportDocument());
    beginExport();
    waitForPhase(Phase::complete);
    settle();
    EXPECT_EQ(shown, QStringLiteral("Export complete"));
}

TEST_F(OperationObserverTest, notifiesOfAFailureWithTheTitleOfItsError) {
    lookElsewhere();
    setEngineThatFails("did not unlock");
    beginInspection();
    waitUntil([this] { return model->presentedError().has_value(); });
    settle();
    EXPECT_EQ(shown, model->presentedError()->title);
    EXPECT_FALSE(isAwake);
}

TEST_F(OperationObserverTest, doesNotNotifyWhileTheWindowIsActive) {
    activate(window);
    inspect(inspectionDocument());
    settle();
    EXPECT_FALSE(shown);
}

TEST_F(OperationObserverTest, doesNotNotifyOfACancellation) {
    lookElsewhere();
    inspect(inspectionDocument());
    settle();
    shown.reset();
    setEngineThatWaits();
    beginExport();
    waitUntilEngineRuns();
    model->cancelOperation();
    settle();
    EXPECT_FALSE(shown);
    type("again");
    model->inspectBackup();
    waitUntilEngineRuns();
    model->cancelOperation();
    settle();
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_FALSE(shown);
}

TEST_F(OperationObserverTest, doesNotNotifyOfAnErrorOutsideAnOperation) {
    lookElsewhere();
    untilAnnounced([this] { model->acceptPackage(path("engine")); });
    settle();
    ASSERT_TRUE(model->presentedError());
    EXPECT_FALSE(shown);
}

TEST_F(OperationObserverTest, withdrawsTheNotificationWhenTheWindowBecomesActive) {
    lookElsewhere();
    inspect(inspectionDocument());
    settle();
    ASSERT_TRUE(shown);
    activate(window);
    EXPECT_FALSE(shown);
}

TEST_F(OperationObserverTest, bringsTheWindowForwardWhenTheNotificationIsPicked) {
    window.showMinimized();
    lookElsewhere();
    inspect(inspectionDocument());
    settle();
    ASSERT_TRUE(shown);
    observer->bringWindowForward();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(window.isMinimized());
    EXPECT_FALSE(shown);
}

} // namespace
