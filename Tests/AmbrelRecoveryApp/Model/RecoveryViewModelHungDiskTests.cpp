// What the user does while a disk does not answer what it was asked about a chosen path.

#include "../Support/HungFolder.h"
#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"

#include <chrono>
#include <memory>

namespace {

class RecoveryViewModelHungDiskTest : public RecoveryViewModelTestCase {
protected:
    RecoveryViewModelHungDiskTest() {
        makeModel();
        std::filesystem::create_directory(path("Slow.ambrel"));
        std::filesystem::create_directory(path("Slow folder"));
    }

    ~RecoveryViewModelHungDiskTest() override { answer(); }

    /// Chooses a package and returns once its disk was asked.
    void chooseSlowPackage() {
        hung_ = std::make_unique<HungFolder>(path("Slow.ambrel"));
        model->acceptPackage(path("Slow.ambrel"));
        waitUntil([] { return HungFolder::hangingCalls() == 1; });
    }

    /// Names a destination and returns once its disk was asked.
    void chooseSlowDestination() {
        hung_ = std::make_unique<HungFolder>(path("Slow folder"));
        panels.answer = path("Slow folder/Recovered");
        model->chooseDestinationAndExport();
        waitUntil([] { return HungFolder::hangingCalls() == 1; });
    }

    /// Lets the disk answer and everything that follows from it come to its end.
    void answer() {
        hung_.reset();
        settle();
    }

    void expectNoSlowPackage() {
        answer();
        EXPECT_NE(model->packageURL(), path("Slow.ambrel"));
        EXPECT_FALSE(model->presentedError());
    }

private:
    std::unique_ptr<HungFolder> hung_;
};

} // namespace

TEST_F(RecoveryViewModelHungDiskTest, aPackageIsTakenOnceItsDiskAnswers) {
    chooseSlowPackage();
    EXPECT_FALSE(model->packageURL());
    EXPECT_FALSE(model->isBusy());
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    EXPECT_EQ(model->factor(), AmbrelRecoveryAppFactor::recoveryKey);
    answer();
    EXPECT_EQ(model->packageURL(), path("Slow.ambrel"));
}

TEST_F(RecoveryViewModelHungDiskTest, theLatestChosenPackageWins) {
    chooseSlowPackage();
    choosePackage();
    expectNoSlowPackage();
    EXPECT_EQ(model->packageURL(), path("Family Photos.ambrel"));
}

TEST_F(RecoveryViewModelHungDiskTest, anInspectionThatBeganMeanwhileWins) {
    choosePackage();
    chooseSlowPackage();
    type("secret");
    setEngineThatWaits();
    model->inspectBackup();
    waitUntilEngineRuns();
    // An abandoned check is no work that settle() could wait for while the engine runs.
    model->cancelOperation();
    expectNoSlowPackage();
    EXPECT_EQ(model->packageURL(), path("Family Photos.ambrel"));
}

TEST_F(RecoveryViewModelHungDiskTest, aCancellationAndStartingAgainWin) {
    chooseSlowPackage();
    model->cancelOperation();
    expectNoSlowPackage();
    chooseSlowPackage();
    model->startAgain();
    expectNoSlowPackage();
}

TEST_F(RecoveryViewModelHungDiskTest, aRefusalThatComesTooLateIsNotShown) {
    std::filesystem::remove(path("Slow.ambrel"));
    chooseSlowPackage();
    choosePackage();
    expectNoSlowPackage();
}

TEST_F(RecoveryViewModelHungDiskTest, anExportBeginsOnceTheDiskOfItsDestinationAnswers) {
    inspect(inspectionDocument());
    setEngineThatPrints(exportDocument());
    chooseSlowDestination();
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_FALSE(model->destinationURL());
    EXPECT_TRUE(model->canExport());
    answer();
    waitForPhase(Phase::complete);
    EXPECT_EQ(model->destinationURL(), path("Slow folder/Recovered"));
}

TEST_F(RecoveryViewModelHungDiskTest, theLatestChosenDestinationWins) {
    inspect(inspectionDocument());
    chooseSlowDestination();
    exportEverything();
    answer();
    EXPECT_EQ(model->phase(), Phase::complete);
    EXPECT_EQ(model->destinationURL(), path("Ambrel Recovered"));
    EXPECT_FALSE(model->presentedError());
}

TEST_F(RecoveryViewModelHungDiskTest, anExportThatHasBecomeImpossibleDoesNotBegin) {
    inspect(inspectionDocument());
    chooseSlowDestination();
    model->setSelectedSnapshotCode(std::nullopt);
    answer();
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_FALSE(model->destinationURL());
}

TEST_F(RecoveryViewModelHungDiskTest, aSnapshotSelectedMeanwhileIsNotExported) {
    inspect(inspectionDocument());
    chooseSlowDestination();
    model->setSelectedSnapshotCode("old");
    answer();
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_FALSE(model->destinationURL());
    EXPECT_EQ(model->selectedSnapshotCode(), "old");
}

TEST_F(RecoveryViewModelHungDiskTest, theEndOfTheProcessDoesNotWaitForIt) {
    constexpr std::chrono::hours tooLongForATest(1);
    chooseSlowPackage();
    model.reset();
    EXPECT_FALSE(BackgroundTask::waitForAll(tooLongForATest));
    EXPECT_EQ(HungFolder::hangingCalls(), 1);
}
