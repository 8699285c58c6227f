// What the user gets where the system has no thread for a step.

#include "../Support/RecoveryViewModelTestCase.h"
#include "../Support/ThreadShortage.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "Support/MemoryScan.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <thread>

namespace {

class RecoveryViewModelThreadShortageTest : public RecoveryViewModelTestCase {
protected:
    RecoveryViewModelThreadShortageTest() { makeModel(); }

    void typeSecret() { type(QString::fromLatin1(secret_.data(), static_cast<qsizetype>(secret_.size()))); }

    /// The generic error is shown, and neither work, nor an engine, nor a file is there. Dismisses the error.
    void expectFailed(Phase phase) {
        EXPECT_EQ(model->phase(), phase);
        EXPECT_FALSE(model->isBusy());
        ASSERT_TRUE(model->presentedError());
        EXPECT_EQ(model->presentedError()->title,
                  AmbrelStrings::localized(AmbrelStrings::recoveryFailureGenericTitle()));
        model->dismissPresentedError();
        EXPECT_FALSE(std::filesystem::exists(path("arguments")));
        EXPECT_TRUE(temporaryFiles().empty());
        waitForWork();
    }

    void expectFailedInspection() {
        expectFailed(Phase::chooseBackup);
        EXPECT_FALSE(model->packagePreparationProgress());
        EXPECT_FALSE(model->canExport());
        inspect(inspectionDocument());
        EXPECT_FALSE(model->presentedError());
    }

    void inspectAndForgetArguments() {
        inspect(inspectionDocument());
        std::filesystem::remove(path("arguments"));
    }

    void expectFailedExport() {
        expectFailed(Phase::snapshots);
        EXPECT_TRUE(model->canExport());
        exportEverything();
        EXPECT_FALSE(model->presentedError());
    }

private:
    const std::string secret_ = MemoryScan::hiddenSecret();
};

} // namespace

TEST(ThreadShortageTest, preventsNewThreadsUntilItIsOver) {
    {
        const ThreadShortage shortage;
        EXPECT_THROW(std::thread([] {}), std::system_error);
    }
    std::thread([] {}).join();
}

TEST_F(RecoveryViewModelThreadShortageTest, beforeThePackageIsCheckedRefusesThePackage) {
    {
        const ThreadShortage shortage;
        model->acceptPackage(path("Family Photos.ambrel"));
    }
    expectFailed(Phase::chooseBackup);
    EXPECT_FALSE(model->packageURL());
    choosePackage();
    EXPECT_EQ(model->packageURL(), path("Family Photos.ambrel"));
}

TEST_F(RecoveryViewModelThreadShortageTest, beforeThePreparationFailsTheInspection) {
    choosePackage();
    typeSecret();
    {
        const ThreadShortage shortage;
        model->inspectBackup();
    }
    expectFailedInspection();
}

TEST_F(RecoveryViewModelThreadShortageTest, betweenThePreparationAndTheEngineFailsTheInspection) {
    choosePackage();
    typeSecret();
    model->inspectBackup();
    {
        const ThreadShortage shortage;
        waitUntil([this] { return model->presentedError().has_value(); });
    }
    EXPECT_EQ(MemoryScan::copiesOfHiddenSecret(), 1) << "the test's own";
    expectFailedInspection();
}

TEST_F(RecoveryViewModelThreadShortageTest, beforeTheDestinationIsCheckedFailsTheExport) {
    inspectAndForgetArguments();
    panels.answer = path("Ambrel Recovered");
    {
        const ThreadShortage shortage;
        model->chooseDestinationAndExport();
    }
    EXPECT_FALSE(model->destinationURL());
    expectFailedExport();
}

TEST_F(RecoveryViewModelThreadShortageTest, betweenThatCheckAndTheEngineFailsTheExport) {
    inspectAndForgetArguments();
    panels.answer = path("Ambrel Recovered");
    model->chooseDestinationAndExport();
    {
        const ThreadShortage shortage;
        waitUntil([this] { return model->presentedError().has_value(); });
    }
    expectFailedExport();
}
