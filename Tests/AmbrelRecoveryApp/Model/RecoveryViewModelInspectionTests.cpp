#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"

#include <algorithm>
#include <atomic>
#include <system_error>

namespace {

class RecoveryViewModelInspectionTest : public RecoveryViewModelTestCase {
protected:
    RecoveryViewModelInspectionTest() { makeModel(); }

    void startInspection() {
        choosePackage();
        type("secret");
        model->inspectBackup();
    }

    void expectFailure(AmbrelRecoveryFailureKind kind) {
        waitForPhase(Phase::chooseBackup);
        const auto expected = RecoveryErrorPresentation::errorPresentation(kind);
        ASSERT_TRUE(model->presentedError());
        EXPECT_EQ(model->presentedError()->title, expected.title);
        EXPECT_EQ(model->presentedError()->body, expected.body);
        EXPECT_FALSE(model->inspection());
    }

    /// What an earlier inspection left stays, but nothing can be exported without typing the credential again.
    void expectDroppedSession() {
        type("secret");
        model->inspectBackup();
        waitForPhase(Phase::chooseBackup);
        EXPECT_TRUE(model->presentedError());
        EXPECT_TRUE(model->inspection());
        EXPECT_EQ(model->selectedSnapshotCode(), "new");
        EXPECT_FALSE(model->canExport());
    }
};

std::string replaced(std::string text, const std::string& old, const std::string& with) {
    return text.replace(text.find(old), old.size(), with);
}

} // namespace

TEST_F(RecoveryViewModelInspectionTest, needsMoreThanSpacesAndLineBreaks) {
    choosePackage();
    for (const char16_t* blank : {u"", u" ", u" \t\r\n ", u"\u00A0\u3000\u2028\u0085"}) {
        type(QString::fromUtf16(blank));
        EXPECT_FALSE(model->canInspect());
    }
    type(" x ");
    EXPECT_TRUE(model->canInspect());
}

TEST_F(RecoveryViewModelInspectionTest, needsAPackage) {
    type("secret");
    EXPECT_FALSE(model->canInspect());
    model->inspectBackup();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    EXPECT_EQ(model->credential().view(), u"secret");
}

TEST_F(RecoveryViewModelInspectionTest, handsTheEngineTheUntrimmedCredentialAndAPathWithSpacesAsOneArgument) {
    choosePackage();
    type(QStringLiteral(" Grüße 🗝 "));
    model->inspectBackup();
    EXPECT_TRUE(model->credential().view().isEmpty());
    EXPECT_EQ(model->phase(), Phase::preparingPackage);
    EXPECT_FALSE(model->canInspect());
    waitForPhase(Phase::snapshots);
    EXPECT_EQ(engineArguments(), (std::vector<std::string>{"inspect", path("Family Photos.ambrel").native(),
                                                           "--backup-passphrase", "--credential-stdin"}));
    EXPECT_EQ(engineInput(), " Grüße 🗝 \n");
}

TEST_F(RecoveryViewModelInspectionTest, passesTheFlagOfTheRecoveryKey) {
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    inspect(inspectionDocument());
    EXPECT_EQ(engineArguments().at(2), "--recovery-key");
}

TEST_F(RecoveryViewModelInspectionTest, showsTheSnapshotsAndSelectsTheRecommendedOne) {
    inspect(inspectionDocument());
    ASSERT_TRUE(model->inspection());
    EXPECT_EQ(model->inspection()->snapshots.size(), 2U);
    EXPECT_EQ(model->selectedSnapshotCode(), "new");
    EXPECT_EQ(model->packagePreparationProgress(), 1.0);
    EXPECT_FALSE(model->presentedError());
    EXPECT_TRUE(model->canExport());
}

TEST_F(RecoveryViewModelInspectionTest, selectsNothingIfTheHistoryForked) {
    inspect(inspectionDocument("unresolved-fork"));
    EXPECT_FALSE(model->selectedSnapshotCode());
    EXPECT_FALSE(model->canExport());
}

TEST_F(RecoveryViewModelInspectionTest, allowsExportOnlyForTheFactorThatUnlockedThePackage) {
    inspect(inspectionDocument());
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    EXPECT_FALSE(model->canExport());
    model->setFactor(AmbrelRecoveryAppFactor::backupPassphrase);
    EXPECT_TRUE(model->canExport());
}

TEST_F(RecoveryViewModelInspectionTest, presentsTheFailureThatTheEngineReports) {
    setEngineThatFails("The passphrase did not unlock the package.");
    startInspection();
    expectFailure(AmbrelRecoveryFailureKind::wrongPassphrase);
}

TEST_F(RecoveryViewModelInspectionTest, presentsAWrongRecoveryKeyForThatFactor) {
    setEngineThatFails("CREDENTIAL IS INVALID");
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    startInspection();
    expectFailure(AmbrelRecoveryFailureKind::wrongRecoveryKey);
}

TEST_F(RecoveryViewModelInspectionTest, refusesADocumentWithOtherIdentifiers) {
    setEngineThatPrints(replaced(inspectionDocument(), "com.ambrel.backup.v1", "com.ambrel.backup.v2"));
    startInspection();
    expectFailure(AmbrelRecoveryFailureKind::generic);
    setEngineThatPrints(replaced(inspectionDocument(), "cli-inspection", "cli-export"));
    startInspection();
    expectFailure(AmbrelRecoveryFailureKind::generic);
}

TEST_F(RecoveryViewModelInspectionTest, refusesEmptyOutputOfASuccessfulEngine) {
    setEngineThatPrints("");
    startInspection();
    expectFailure(AmbrelRecoveryFailureKind::generic);
}

TEST_F(RecoveryViewModelInspectionTest, keepsAnEarlierInspectionAndDropsTheSessionWhenTheEngineReportsAFailure) {
    inspect(inspectionDocument());
    setEngineThatFails("package is unavailable");
    expectDroppedSession();
}

TEST_F(RecoveryViewModelInspectionTest, keepsAnEarlierInspectionAndDropsTheSessionWhenTheResultIsRefused) {
    inspect(inspectionDocument());
    setEngineThatPrints("");
    expectDroppedSession();
}

TEST_F(RecoveryViewModelInspectionTest, keepsAnEarlierInspectionAndDropsTheSessionWhenTheEngineCannotRun) {
    inspect(inspectionDocument());
    std::filesystem::remove(path("engine"));
    expectDroppedSession();
    EXPECT_FALSE(model->packagePreparationProgress());
}

TEST_F(RecoveryViewModelInspectionTest, keepsAnEarlierInspectionAndDropsTheSessionWhenThePreparationFails) {
    inspect(inspectionDocument());
    cloudItems->onProperties = [] { return CloudItems::Properties{.isUbiquitous = true, .hasDownloadingError = true}; };
    expectDroppedSession();
    EXPECT_FALSE(model->packagePreparationProgress());
}

TEST_F(RecoveryViewModelInspectionTest, presentsAMissingEngineAsAGenericFailure) {
    std::filesystem::remove(path("engine"));
    startInspection();
    expectFailure(AmbrelRecoveryFailureKind::generic);
    EXPECT_FALSE(model->packagePreparationProgress());
}

TEST_F(RecoveryViewModelInspectionTest, showsTheProgressOfADownload) {
    std::atomic<int> passes = 0;
    cloudItems->onProperties = [&passes] {
        return CloudItems::Properties{.isUbiquitous = true, .isDownloaded = ++passes >= 3};
    };
    cloudItems->onPercentDownloaded = [] { return 42.0; };
    std::vector<std::optional<double>> shown;
    QObject::connect(
        model.get(), &RecoveryViewModel::aboutToChange, model.get(),
        [&] { shown.push_back(model->packagePreparationProgress()); }, Qt::QueuedConnection);
    startInspection();
    waitForPhase(Phase::snapshots);
    EXPECT_NE(std::ranges::find(shown, std::optional(0.42)), shown.end());
    EXPECT_EQ(model->packagePreparationProgress(), 1.0);
}

TEST_F(RecoveryViewModelInspectionTest, presentsADownloadThatFails) {
    cloudItems->onProperties = [] { return CloudItems::Properties{.isUbiquitous = true, .hasDownloadingError = true}; };
    startInspection();
    expectFailure(AmbrelRecoveryFailureKind::packageUnavailable);
    EXPECT_FALSE(model->packagePreparationProgress());
}

TEST_F(RecoveryViewModelInspectionTest, presentsUnreadablePropertiesAsAGenericFailure) {
    cloudItems->onProperties = []() -> CloudItems::Properties {
        throw std::system_error(std::make_error_code(std::errc::io_error));
    };
    startInspection();
    expectFailure(AmbrelRecoveryFailureKind::generic);
}

TEST_F(RecoveryViewModelInspectionTest, canBeRepeatedAfterAFailure) {
    setEngineThatFails("did not unlock");
    startInspection();
    expectFailure(AmbrelRecoveryFailureKind::wrongPassphrase);
    inspect(inspectionDocument());
    EXPECT_FALSE(model->presentedError());
}

TEST_F(RecoveryViewModelInspectionTest, formatsTheEpochInTheTimeZoneOfTheUser) {
    qputenv("TZ", "America/Los_Angeles");
    EXPECT_TRUE(model->formattedDate(0).contains("1969")) << model->formattedDate(0).toStdString();
    qputenv("TZ", "UTC");
    EXPECT_TRUE(model->formattedDate(0).contains("1970")) << model->formattedDate(0).toStdString();
    EXPECT_TRUE(model->formattedDate(-86'400'000).contains("1969"));
    qunsetenv("TZ");
}

TEST_F(RecoveryViewModelInspectionTest, formatsAFractionAsAWholePercentageWithoutClamping) {
    EXPECT_TRUE(model->formattedPercent(0.42).contains("42"));
    EXPECT_TRUE(model->formattedPercent(1.5).contains("150"));
}

TEST_F(RecoveryViewModelInspectionTest, acceptsNoOtherSecretOrFactorWhileItRuns) {
    setEngineThatWaits();
    startInspection();
    const auto expectIgnored = [this] {
        type("another secret");
        EXPECT_TRUE(model->credential().view().isEmpty());
        model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
        EXPECT_EQ(model->factor(), AmbrelRecoveryAppFactor::backupPassphrase);
    };
    ASSERT_EQ(model->phase(), Phase::preparingPackage);
    expectIgnored();
    waitUntilEngineRuns();
    expectIgnored();
    model->cancelOperation();
    inspect(inspectionDocument());
    EXPECT_TRUE(model->credential().view().isEmpty());
}
