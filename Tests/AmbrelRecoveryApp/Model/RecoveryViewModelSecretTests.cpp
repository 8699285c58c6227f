// What is left of the credential in this process, at each point where the session is dropped or kept.

#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "Support/MemoryScan.h"
#include "Support/NamedPipe.h"

#include <chrono>
#include <functional>
#include <system_error>

namespace {

class RecoveryViewModelSecretTest : public RecoveryViewModelTestCase {
protected:
    RecoveryViewModelSecretTest() { makeModel(); }

    /// The copies that the application has: as the bytes that the engine gets, without the test's own ones.
    static int copiesAtOnce() { return MemoryScan::copiesOfHiddenSecret() - 1; }

    /// The same once all work in the background has ended.
    static int copies() {
        waitForWork();
        return copiesAtOnce();
    }

    void startInspection() {
        choosePackage();
        typeAndInspect();
    }

    void typeAndInspect() {
        type(QString::fromLatin1(secret_.data(), static_cast<qsizetype>(secret_.size())));
        model->inspectBackup();
    }

    /// To the end; from then on the session holds the credential, and nothing else does.
    void inspectWell() {
        setEngineThatPrints(inspectionDocument());
        startInspection();
        waitForPhase(Phase::snapshots);
        ASSERT_EQ(copies(), 1);
    }

    void startExport() { chooseDestination(path("Ambrel Recovered")); }

    void exportUntilEngineRuns() {
        setEngineThatWaits();
        startExport();
        waitUntilEngineRuns();
    }

    /// Expects that `act`, in the middle of an operation of a deaf engine, leaves no copy but that of the run at once,
    /// and none once the engine has ended.
    void expectSessionGoneAtOnce(const std::function<void()>& start, const std::function<void()>& act) {
        NamedPipe gate(path("gate"));
        setEngine("trap '' TERM\nread credential\ntouch running\nread line < gate\n");
        start();
        waitUntilEngineRuns();
        // The engine may have the credential a moment before what was delivered is wiped.
        waitUntil([] { return copiesAtOnce() == 2; });
        act();
        EXPECT_EQ(copiesAtOnce(), 1);
        EXPECT_FALSE(BackgroundTask::waitForAll(std::chrono::milliseconds(0))) << "the engine runs";
        gate.write("\n");
        EXPECT_EQ(copies(), 0);
    }

    void downloadForever() {
        cloudItems->onProperties = [] { return CloudItems::Properties{.isUbiquitous = true}; };
        cloudItems->onPercentDownloaded = [] { return 10.0; };
    }

private:
    const std::string secret_ = MemoryScan::hiddenSecret();
};

} // namespace

TEST_F(RecoveryViewModelSecretTest, isGoneWhenAnotherPackageIsChosen) {
    inspectWell();
    choosePackage();
    EXPECT_EQ(copies(), 0);
}

TEST_F(RecoveryViewModelSecretTest, isThatOfTheLatestInspectionAlone) {
    inspectWell();
    type("another secret");
    model->inspectBackup();
    EXPECT_NE(model->phase(), Phase::snapshots);
    waitForPhase(Phase::snapshots);
    EXPECT_EQ(copies(), 0);
    EXPECT_TRUE(model->canExport());
}

TEST_F(RecoveryViewModelSecretTest, isGoneWhenTheEngineReportsAFailure) {
    setEngineThatFails("did not unlock");
    startInspection();
    waitForPhase(Phase::chooseBackup);
    EXPECT_EQ(copies(), 0);
}

TEST_F(RecoveryViewModelSecretTest, isGoneWhenTheEngineCannotRun) {
    std::filesystem::remove(path("engine"));
    startInspection();
    waitForPhase(Phase::chooseBackup);
    EXPECT_EQ(copies(), 0);
}

TEST_F(RecoveryViewModelSecretTest, isGoneWhenThePackageCannotBePrepared) {
    cloudItems->onProperties = []() -> CloudItems::Properties {
        throw std::system_error(std::make_error_code(std::errc::io_error));
    };
    startInspection();
    waitForPhase(Phase::chooseBackup);
    EXPECT_EQ(copies(), 0);
}

TEST_F(RecoveryViewModelSecretTest, isGoneWhenADownloadIsCancelledWithoutAnEarlierInspection) {
    downloadForever();
    startInspection();
    waitUntil([this] { return model->packagePreparationProgress() == 0.1; });
    model->cancelOperation();
    EXPECT_EQ(copies(), 0);
}

TEST_F(RecoveryViewModelSecretTest, staysOnlyInTheRunUntilTheEngineEndsIfTheFirstInspectionIsCancelled) {
    expectSessionGoneAtOnce([this] { startInspection(); }, [this] { model->cancelOperation(); });
}

TEST_F(RecoveryViewModelSecretTest, isKeptWhenALaterInspectionIsCancelled) {
    inspectWell();
    setEngineThatWaits();
    typeAndInspect();
    waitUntilEngineRuns();
    model->cancelOperation();
    EXPECT_EQ(copies(), 1);
}

TEST_F(RecoveryViewModelSecretTest, isKeptWhenAnExportIsCancelledOrFailsAndGoneWhenItSucceeds) {
    inspectWell();
    exportUntilEngineRuns();
    model->cancelOperation();
    EXPECT_EQ(copies(), 1);
    setEngineThatFails("output could not be written");
    startExport();
    waitUntil([this] { return model->presentedError().has_value(); });
    EXPECT_EQ(copies(), 1);
    setEngineThatPrints(exportDocument());
    startExport();
    waitForPhase(Phase::complete);
    EXPECT_EQ(copies(), 0);
}

TEST_F(RecoveryViewModelSecretTest, isGoneWhenTheUserStartsAgain) {
    inspectWell();
    model->startAgain();
    EXPECT_EQ(copies(), 0);
}

TEST_F(RecoveryViewModelSecretTest, staysOnlyInTheRunUntilTheEngineEndsIfTheUserStartsAgainDuringAnExport) {
    inspectWell();
    expectSessionGoneAtOnce([this] { startExport(); }, [this] { model->startAgain(); });
}

TEST_F(RecoveryViewModelSecretTest, isGoneWithTheModel) {
    inspectWell();
    model.reset();
    EXPECT_EQ(copies(), 0);
}

TEST_F(RecoveryViewModelSecretTest, staysOnlyInTheRunUntilTheEngineEndsIfTheModelIsDestroyedDuringAnExport) {
    inspectWell();
    expectSessionGoneAtOnce([this] { startExport(); }, [this] { model.reset(); });
}

TEST_F(RecoveryViewModelSecretTest, isGoneWithTheModelDuringADownload) {
    downloadForever();
    startInspection();
    waitUntil([this] { return model->packagePreparationProgress() == 0.1; });
    model.reset();
    EXPECT_EQ(copies(), 0);
}
