#include "../Support/RecoveryViewModelTestCase.h"

#include <QCoreApplication>

#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace {

class RecoveryViewModelCancellationTest : public RecoveryViewModelTestCase {
protected:
    RecoveryViewModelCancellationTest() { makeModel(); }

    void inspectUntilEngineRuns() {
        setEngineThatWaits();
        choosePackage();
        type("secret");
        model->inspectBackup();
        waitUntilEngineRuns();
    }

    void exportUntilEngineRuns() {
        setEngineThatWaits();
        chooseDestination(path("Ambrel Recovered"));
        waitUntilEngineRuns();
    }
};

} // namespace

TEST_F(RecoveryViewModelCancellationTest, ofAnInspectionEndsTheEngineAndShowsNoError) {
    inspectUntilEngineRuns();
    EXPECT_EQ(model->phase(), Phase::inspecting);
    model->cancelOperation();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    settle();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    EXPECT_FALSE(model->presentedError());
    EXPECT_FALSE(model->packagePreparationProgress());
}

TEST_F(RecoveryViewModelCancellationTest, ofAnExportKeepsTheSessionSoThatItCanStartAgain) {
    inspect(inspectionDocument());
    exportUntilEngineRuns();
    model->cancelOperation();
    EXPECT_EQ(model->phase(), Phase::snapshots);
    settle();
    EXPECT_FALSE(model->presentedError());
    EXPECT_EQ(model->destinationURL(), path("Ambrel Recovered"));
    EXPECT_EQ(model->selectedSnapshotCode(), "new");
    EXPECT_TRUE(model->canExport());
    setEngineThatPrints(exportDocument());
    model->chooseDestinationAndExport();
    waitForPhase(Phase::complete);
    EXPECT_EQ(engineInput(), "correct horse\n");
}

TEST_F(RecoveryViewModelCancellationTest, ofALaterInspectionGoesBackToTheSnapshots) {
    inspect(inspectionDocument());
    setEngineThatWaits();
    type("secret");
    model->inspectBackup();
    waitUntilEngineRuns();
    model->cancelOperation();
    EXPECT_EQ(model->phase(), Phase::snapshots);
    settle();
    EXPECT_TRUE(model->inspection());
    EXPECT_TRUE(model->canExport());
}

TEST_F(RecoveryViewModelCancellationTest, ofADownloadEndsItAndShowsNoError) {
    cloudItems->onProperties = [] { return CloudItems::Properties{.isUbiquitous = true}; };
    cloudItems->onPercentDownloaded = [] { return 10.0; };
    choosePackage();
    type("secret");
    model->inspectBackup();
    waitUntil([this] { return model->packagePreparationProgress() == 0.1; });
    EXPECT_EQ(model->phase(), Phase::preparingPackage);
    model->cancelOperation();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    settle();
    EXPECT_FALSE(model->packagePreparationProgress());
    EXPECT_FALSE(model->presentedError());
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
}

TEST_F(RecoveryViewModelCancellationTest, discardsAResultThatIsAlreadyQueued) {
    choosePackage();
    type("secret");
    model->inspectBackup();
    waitForPhase(Phase::inspecting);
    // The main thread does not look while the engine ends; its outcome is queued when the cancellation comes.
    waitForWork();
    model->cancelOperation();
    QCoreApplication::processEvents();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    EXPECT_FALSE(model->inspection());
}

TEST_F(RecoveryViewModelCancellationTest, keepsAnErrorThatIsShown) {
    panels.answer = path("temporary");
    untilAnnounced([this] { model->chooseBackup(); });
    ASSERT_TRUE(model->presentedError());
    model->cancelOperation();
    EXPECT_TRUE(model->presentedError());
}

TEST_F(RecoveryViewModelCancellationTest, byStartingAgainClearsEverythingButTheFactor) {
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    exportToTheEndAndInspectAgain();
    type("typed again");
    exportUntilEngineRuns();
    model->startAgain();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    EXPECT_EQ(model->factor(), AmbrelRecoveryAppFactor::recoveryKey);
    EXPECT_FALSE(model->packageURL());
    EXPECT_FALSE(model->inspection());
    EXPECT_FALSE(model->selectedSnapshotCode());
    EXPECT_FALSE(model->destinationURL());
    EXPECT_FALSE(model->exportResult());
    EXPECT_FALSE(model->packagePreparationProgress());
    EXPECT_TRUE(model->credential().view().isEmpty());
    settle();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    EXPECT_FALSE(model->presentedError());
}

TEST_F(RecoveryViewModelCancellationTest, byDestroyingTheModelEndsTheEngine) {
    inspectUntilEngineRuns();
    model.reset();
    settle();
}

TEST_F(RecoveryViewModelCancellationTest, byDestroyingTheModelDuringADownloadEndsIt) {
    auto asked = std::make_shared<std::promise<void>>();
    std::future<void> firstPass = asked->get_future();
    cloudItems->onProperties = [asked, told = false]() mutable {
        if (!std::exchange(told, true)) {
            asked->set_value();
        }
        return CloudItems::Properties{.isUbiquitous = true};
    };
    choosePackage();
    type("secret");
    model->inspectBackup();
    firstPass.wait();
    model.reset();
    settle();
}

TEST_F(RecoveryViewModelCancellationTest, atAnyMomentOfAnInspectionLeavesNothingBehind) {
    for (int turns = 0; turns < 40; ++turns) {
        setEngineThatPrints(inspectionDocument());
        choosePackage();
        type("secret");
        model->inspectBackup();
        for (int turn = 0; turn < turns; ++turn) {
            QCoreApplication::processEvents();
            std::this_thread::yield();
        }
        model->startAgain();
        settle();
        ASSERT_EQ(model->phase(), Phase::chooseBackup);
        ASSERT_FALSE(model->presentedError());
        ASSERT_TRUE(temporaryFiles().empty());
    }
}
