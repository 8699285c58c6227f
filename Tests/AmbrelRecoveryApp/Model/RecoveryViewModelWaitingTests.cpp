// An engine that was cancelled and does not end at once, and what is begun meanwhile.

#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Model/RecoveryEngineProgram.h"
#include "Support/NamedPipe.h"

#include <QCoreApplication>

#include <chrono>
#include <fstream>
#include <optional>
#include <thread>

namespace {

class RecoveryViewModelWaitingTest : public RecoveryViewModelTestCase {
protected:
    ~RecoveryViewModelWaitingTest() override { letEngineEnd(); }

    void makeModelThatWaits(std::chrono::milliseconds longestWait = RecoveryEngineProgram::defaultWait) {
        model =
            std::make_unique<RecoveryViewModel>(std::make_shared<RecoveryEngineProgram>(path("engine"), longestWait),
                                                RecoveryViewModel::Desktop{panels, fileViewer, cloudItems});
    }

    /// One that tells that it runs, and goes on when it is asked to end.
    void setEngineThatIgnoresCancellation() {
        gate_.emplace(path("gate"));
        setEngine("trap '' TERM\ntouch running\nread line < gate\ntouch ended\n");
    }

    /// One that notes where it was started before the one before it had ended.
    void setNextEngineThatPrints(const std::string& document) {
        std::ofstream(path("document")) << document;
        setEngine("test -e ended || touch overlapped\nprintf '%s\\n' \"$@\" > arguments\ncat > input\ncat document\n");
    }

    void expectOneAfterTheOther() const { EXPECT_FALSE(std::filesystem::exists(path("overlapped"))); }

    void letEngineEnd() {
        if (gate_) {
            gate_->write("\n");
            settle();
            gate_.reset();
        }
    }

    void startInspection() {
        type("secret");
        model->inspectBackup();
    }

    /// Leaves an engine behind that goes on.
    void cancelAnInspection() {
        setEngineThatIgnoresCancellation();
        choosePackage();
        startInspection();
        waitUntilEngineRuns();
        model->cancelOperation();
    }

    void cancelAnExport() {
        inspect(inspectionDocument());
        setEngineThatIgnoresCancellation();
        chooseDestination(path("Ambrel Recovered"));
        waitUntilEngineRuns();
        model->cancelOperation();
        std::filesystem::remove(path("arguments"));
    }

    /// Whether an engine of setEngineThatPrints() was started.
    bool isNextEngineStarted() const { return std::filesystem::exists(path("arguments")); }

    void expectGenericError() {
        ASSERT_TRUE(model->presentedError());
        EXPECT_EQ(model->presentedError()->title,
                  AmbrelStrings::localized(AmbrelStrings::recoveryFailureGenericTitle()));
        EXPECT_FALSE(isNextEngineStarted());
    }

private:
    std::optional<NamedPipe> gate_;
};

} // namespace

TEST_F(RecoveryViewModelWaitingTest, anInspectionRunsOnceTheCancelledOneHasEnded) {
    makeModelThatWaits();
    cancelAnInspection();
    setNextEngineThatPrints(inspectionDocument());
    startInspection();
    waitForPhase(Phase::inspecting);
    letEngineEnd();
    waitForPhase(Phase::snapshots);
    expectOneAfterTheOther();
    EXPECT_FALSE(model->presentedError());
    EXPECT_EQ(engineInput(), "secret\n");
}

TEST_F(RecoveryViewModelWaitingTest, anExportRunsOnceTheCancelledOneHasEnded) {
    makeModelThatWaits();
    cancelAnExport();
    setNextEngineThatPrints(exportDocument());
    chooseDestination(path("Another folder"));
    EXPECT_EQ(model->phase(), Phase::exporting);
    letEngineEnd();
    waitForPhase(Phase::complete);
    expectOneAfterTheOther();
    EXPECT_FALSE(model->presentedError());
    EXPECT_EQ(engineInput(), "correct horse\n");
}

TEST_F(RecoveryViewModelWaitingTest, aWaitingInspectionCanBeCancelledAndNeverRuns) {
    makeModelThatWaits();
    cancelAnInspection();
    setEngineThatPrints(inspectionDocument());
    startInspection();
    waitForPhase(Phase::inspecting);
    model->cancelOperation();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    letEngineEnd();
    EXPECT_FALSE(isNextEngineStarted());
    EXPECT_FALSE(model->presentedError());
    startInspection();
    waitForPhase(Phase::snapshots);
}

TEST_F(RecoveryViewModelWaitingTest, aWaitingInspectionNeverRunsOnceTheModelIsGone) {
    makeModelThatWaits();
    cancelAnInspection();
    setEngineThatPrints(inspectionDocument());
    startInspection();
    waitForPhase(Phase::inspecting);
    model.reset();
    letEngineEnd();
    EXPECT_FALSE(isNextEngineStarted());
}

TEST_F(RecoveryViewModelWaitingTest, anInspectionFailsAndReturnsTheSecretIfTheEarlierEngineNeverEnds) {
    makeModelThatWaits(std::chrono::milliseconds(1));
    cancelAnInspection();
    setEngineThatPrints(inspectionDocument());
    startInspection();
    waitUntil([this] { return model->presentedError().has_value(); });
    expectGenericError();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    EXPECT_FALSE(model->packagePreparationProgress());
    EXPECT_EQ(model->credential().view(), u"secret");
    EXPECT_TRUE(model->canInspect());
    letEngineEnd();
    model->inspectBackup();
    waitForPhase(Phase::snapshots);
    EXPECT_EQ(engineInput(), "secret\n");
    EXPECT_TRUE(model->credential().view().isEmpty());
}

TEST_F(RecoveryViewModelWaitingTest, anExportFailsAndKeepsTheSecretIfTheEarlierEngineNeverEnds) {
    makeModelThatWaits(std::chrono::milliseconds(1));
    cancelAnExport();
    setEngineThatPrints(exportDocument());
    chooseDestination(path("Another folder"));
    waitUntil([this] { return model->presentedError().has_value(); });
    expectGenericError();
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_TRUE(model->canExport());
    letEngineEnd();
    chooseDestination(path("Another folder"));
    waitForPhase(Phase::complete);
    EXPECT_EQ(engineInput(), "correct horse\n");
}

TEST_F(RecoveryViewModelWaitingTest, anInspectionThatWasCancelledAtAnyMomentDoesNotDisturbTheNext) {
    makeModelThatWaits();
    for (int turns = 0; turns < 40 && !HasFailure(); ++turns) {
        setEngineThatPrints(inspectionDocument());
        choosePackage();
        startInspection();
        for (int turn = 0; turn < turns; ++turn) {
            QCoreApplication::processEvents();
            std::this_thread::yield();
        }
        model->cancelOperation();
        choosePackage();
        startInspection();
        waitUntil([this] { return !model->isBusy(); });
        EXPECT_EQ(model->phase(), Phase::snapshots) << turns;
        EXPECT_FALSE(model->presentedError()) << turns;
    }
}
