#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"

#include <cstdint>
#include <limits>

namespace {

class RecoveryViewModelExportTest : public RecoveryViewModelTestCase {
protected:
    RecoveryViewModelExportTest() {
        makeModel();
        inspect(inspectionDocument());
        panels.answer = path("Ambrel Recovered");
    }

    void expectDestinationError() {
        const auto expected =
            RecoveryErrorPresentation::errorPresentation(AmbrelRecoveryFailureKind::destinationUnavailable);
        ASSERT_TRUE(model->presentedError());
        EXPECT_EQ(model->presentedError()->title, expected.title);
        EXPECT_EQ(model->presentedError()->body, expected.body);
        EXPECT_EQ(model->phase(), Phase::snapshots);
        EXPECT_FALSE(model->destinationURL());
    }
};

} // namespace

TEST_F(RecoveryViewModelExportTest, asksWithTheTextsOfTheCatalogueAndProposesAName) {
    panels.answer = std::nullopt;
    model->chooseDestinationAndExport();
    ASSERT_EQ(panels.savePanels.size(), 1U);
    EXPECT_EQ(panels.savePanels[0].title, AmbrelStrings::localized(AmbrelStrings::filesExportChooseDestination()));
    EXPECT_EQ(panels.savePanels[0].prompt, AmbrelStrings::localized(AmbrelStrings::filesExportStart()));
    EXPECT_EQ(panels.savePanels[0].proposedName, "Ambrel Recovered");
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_FALSE(model->destinationURL());
}

TEST_F(RecoveryViewModelExportTest, tellsThePanelHowMuchTheSelectedSnapshotNeeds) {
    std::string document = inspectionDocument();
    // That of the older snapshot, which comes first.
    document.replace(document.find("1500000"), std::string_view("1500000").size(), "18446744073709551615");
    inspect(document);
    panels.answer = std::nullopt;
    for (const char* const code : {"new", "old", "not there"}) {
        model->setSelectedSnapshotCode(code);
        model->chooseDestinationAndExport();
    }
    ASSERT_EQ(panels.savePanels.size(), 3U);
    EXPECT_EQ(panels.savePanels[0].requiredByteCount, 1'500'000U);
    EXPECT_EQ(panels.savePanels[1].requiredByteCount, std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(panels.savePanels[2].requiredByteCount, std::nullopt);
}

TEST_F(RecoveryViewModelExportTest, acceptsNoOtherSecretFactorOrSnapshotWhileItRuns) {
    setEngineThatWaits();
    chooseDestination(path("Ambrel Recovered"));
    waitUntilEngineRuns();
    type("another secret");
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    model->setSelectedSnapshotCode("old");
    EXPECT_TRUE(model->credential().view().isEmpty());
    EXPECT_EQ(model->factor(), AmbrelRecoveryAppFactor::backupPassphrase);
    EXPECT_EQ(model->selectedSnapshotCode(), "new");
    model->cancelOperation();
    model->setSelectedSnapshotCode("old");
    EXPECT_EQ(model->selectedSnapshotCode(), "old");
}

TEST_F(RecoveryViewModelExportTest, refusesADestinationInsideThePackageBeforeTheEngineIsAsked) {
    setEngineThatPrints(exportDocument());
    std::filesystem::remove(path("arguments"));
    std::filesystem::create_directory_symlink(path("Family Photos.ambrel"), path("link"));
    chooseDestination(path("link/Recovered"));
    expectDestinationError();
    EXPECT_FALSE(std::filesystem::exists(path("arguments")));
    EXPECT_TRUE(model->canExport());
}

TEST_F(RecoveryViewModelExportTest, handsTheEngineItsCommandLineAndTheCredentialAndCompletes) {
    setEngineThatPrints(exportDocument());
    chooseDestination(path("temporary/../Ambrel Recovered"));
    EXPECT_EQ(model->phase(), Phase::exporting);
    EXPECT_EQ(model->destinationURL(), path("Ambrel Recovered"));
    EXPECT_FALSE(model->canExport());
    EXPECT_FALSE(model->canInspect());
    waitForPhase(Phase::complete);
    EXPECT_EQ(engineArguments(),
              (std::vector<std::string>{"export", path("Family Photos.ambrel").native(), "--snapshot", "new",
                                        "--destination", path("temporary/../Ambrel Recovered").native(),
                                        "--backup-passphrase", "--credential-stdin"}));
    EXPECT_EQ(engineInput(), "correct horse\n");
    ASSERT_TRUE(model->exportResult());
    EXPECT_EQ(model->exportResult()->recoveredItemCount, 3);
    EXPECT_FALSE(model->canExport());
    EXPECT_FALSE(std::filesystem::exists(path("Ambrel Recovered")));
}

TEST_F(RecoveryViewModelExportTest, exportsTheSnapshotThatTheUserPicked) {
    setEngineThatPrints(exportDocument());
    model->setSelectedSnapshotCode("old");
    model->chooseDestinationAndExport();
    waitForPhase(Phase::complete);
    EXPECT_EQ(engineArguments().at(3), "old");
}

TEST_F(RecoveryViewModelExportTest, refusesADestinationThatExists) {
    std::filesystem::create_directory(path("Ambrel Recovered"));
    chooseDestination(path("Ambrel Recovered"));
    expectDestinationError();
}

TEST_F(RecoveryViewModelExportTest, refusesADestinationThatIsADanglingLink) {
    std::filesystem::create_symlink(path("nowhere"), path("Ambrel Recovered"));
    chooseDestination(path("Ambrel Recovered"));
    expectDestinationError();
}

TEST_F(RecoveryViewModelExportTest, keepsTheSessionAfterAFailureSoThatItCanBeTriedAgain) {
    setEngineThatFails("output could not be written");
    model->chooseDestinationAndExport();
    waitUntil([this] { return model->presentedError().has_value(); });
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_EQ(model->presentedError()->title,
              AmbrelStrings::localized(AmbrelStrings::filesExportDestinationUnavailableTitle()));
    EXPECT_TRUE(model->canExport());
    setEngineThatPrints(exportDocument());
    chooseDestination(path("Ambrel Recovered"));
    EXPECT_FALSE(model->presentedError());
    waitForPhase(Phase::complete);
    EXPECT_EQ(engineInput(), "correct horse\n");
}

TEST_F(RecoveryViewModelExportTest, refusesADocumentOfAnotherKind) {
    setEngineThatPrints(inspectionDocument());
    model->chooseDestinationAndExport();
    waitUntil([this] { return model->presentedError().has_value(); });
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_EQ(model->presentedError()->title, AmbrelStrings::localized(AmbrelStrings::recoveryFailureGenericTitle()));
    EXPECT_FALSE(model->exportResult());
    EXPECT_TRUE(model->canExport());
}

TEST_F(RecoveryViewModelExportTest, refusesAReportWithTheIdentifierOfAnInspection) {
    std::string report = exportDocument();
    report.replace(report.find("cli-export"), std::string_view("cli-export").size(), "cli-inspection");
    setEngineThatPrints(report);
    model->chooseDestinationAndExport();
    waitUntil([this] { return model->presentedError().has_value(); });
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_EQ(model->presentedError()->title, AmbrelStrings::localized(AmbrelStrings::recoveryFailureGenericTitle()));
    EXPECT_FALSE(model->exportResult());
    EXPECT_TRUE(model->canExport());
}

TEST_F(RecoveryViewModelExportTest, completesEvenIfResourcesCouldNotBeWritten) {
    std::string report = exportDocument();
    const std::string_view none = R"("failedResourceCount":0)";
    report.replace(report.find(none), none.size(), R"("failedResourceCount":3)");
    setEngineThatPrints(report);
    model->chooseDestinationAndExport();
    waitForPhase(Phase::complete);
    EXPECT_FALSE(model->presentedError());
    ASSERT_TRUE(model->exportResult());
    EXPECT_EQ(model->exportResult()->failedResourceCount, 3);
    // Everything else that an export needs is still there: the session is not.
    EXPECT_TRUE(model->inspection());
    EXPECT_TRUE(model->selectedSnapshotCode());
    EXPECT_FALSE(model->canExport());
}

TEST_F(RecoveryViewModelExportTest, presentsAMissingEngineAsAGenericFailureAndKeepsTheSession) {
    std::filesystem::remove(path("engine"));
    model->chooseDestinationAndExport();
    waitUntil([this] { return model->presentedError().has_value(); });
    EXPECT_EQ(model->presentedError()->title, AmbrelStrings::localized(AmbrelStrings::recoveryFailureGenericTitle()));
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_TRUE(model->canExport());
}

TEST_F(RecoveryViewModelExportTest, isIgnoredWithoutASelection) {
    model->setSelectedSnapshotCode(std::nullopt);
    model->chooseDestinationAndExport();
    EXPECT_TRUE(panels.savePanels.empty());
}

TEST_F(RecoveryViewModelExportTest, ignoresAnAnswerThatComesWhenExportHasBecomeImpossible) {
    panels.staysOpen = true;
    model->chooseDestinationAndExport();
    model->setSelectedSnapshotCode(std::nullopt);
    panels.open.at(0)(path("Ambrel Recovered"));
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_FALSE(model->destinationURL());
}

TEST_F(RecoveryViewModelExportTest, revealsTheDestination) {
    model->openRecoveredFolder();
    EXPECT_TRUE(fileViewer.revealed.empty());
    setEngineThatPrints(exportDocument());
    model->chooseDestinationAndExport();
    waitForPhase(Phase::complete);
    model->openRecoveredFolder();
    EXPECT_EQ(fileViewer.revealed, (std::vector{path("Ambrel Recovered")}));
}

TEST_F(RecoveryViewModelExportTest, canInspectAgainAfterCompletion) {
    setEngineThatPrints(exportDocument());
    model->chooseDestinationAndExport();
    waitForPhase(Phase::complete);
    setEngineThatPrints(inspectionDocument());
    type("secret");
    EXPECT_TRUE(model->canInspect());
    model->inspectBackup();
    waitForPhase(Phase::snapshots);
}
