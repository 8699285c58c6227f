#include "../Support/RecoveryViewModelTestCase.h"
#include "AmbrelLocalization/AmbrelStrings.h"

#include <fstream>

namespace {

class RecoveryViewModelChoosingTest : public RecoveryViewModelTestCase {
protected:
    RecoveryViewModelChoosingTest() { makeModel(); }

    void expectRefused(const std::filesystem::path& choice) {
        panels.answer = choice;
        untilAnnounced([this] { model->chooseBackup(); });
        ASSERT_TRUE(model->presentedError());
        EXPECT_EQ(model->presentedError()->title,
                  AmbrelStrings::localized(AmbrelStrings::recoveryFailureInvalidPackageTitle()));
        EXPECT_EQ(model->presentedError()->body,
                  AmbrelStrings::localized(AmbrelStrings::recoveryFailureInvalidPackageBody()));
        EXPECT_FALSE(model->packageURL());
        EXPECT_EQ(model->phase(), Phase::chooseBackup);
    }
};

} // namespace

TEST_F(RecoveryViewModelChoosingTest, startsWithNothingChosen) {
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    EXPECT_FALSE(model->packageURL());
    EXPECT_EQ(model->factor(), AmbrelRecoveryAppFactor::backupPassphrase);
    EXPECT_TRUE(model->credential().view().isEmpty());
    EXPECT_FALSE(model->inspection());
    EXPECT_FALSE(model->selectedSnapshotCode());
    EXPECT_FALSE(model->destinationURL());
    EXPECT_FALSE(model->exportResult());
    EXPECT_FALSE(model->packagePreparationProgress());
    EXPECT_FALSE(model->presentedError());
    EXPECT_FALSE(model->canInspect());
    EXPECT_FALSE(model->canExport());
}

TEST_F(RecoveryViewModelChoosingTest, presentsTheGenericErrorAtOnceWithoutAnEngineAndThenDoesNothing) {
    RecoveryViewModel withoutEngine(std::nullopt, {panels, fileViewer, cloudItems});
    ASSERT_TRUE(withoutEngine.presentedError());
    EXPECT_EQ(withoutEngine.presentedError()->title,
              AmbrelStrings::localized(AmbrelStrings::recoveryFailureGenericTitle()));
    withoutEngine.acceptPackage(path("Family Photos.ambrel"));
    waitUntil([&withoutEngine] { return withoutEngine.packageURL().has_value(); });
    withoutEngine.setCredential(SecretText(u"secret"));
    EXPECT_TRUE(withoutEngine.canInspect());
    withoutEngine.inspectBackup();
    EXPECT_EQ(withoutEngine.phase(), Phase::chooseBackup);
    EXPECT_EQ(withoutEngine.credential().view(), u"secret");
}

TEST_F(RecoveryViewModelChoosingTest, asksWithTheTextsOfTheCatalogue) {
    model->chooseBackup();
    ASSERT_EQ(panels.openPanels.size(), 1U);
    EXPECT_EQ(panels.openPanels[0].title, AmbrelStrings::localized(AmbrelStrings::recoveryChoosePackageAction()));
    EXPECT_EQ(panels.openPanels[0].prompt, panels.openPanels[0].title);
}

TEST_F(RecoveryViewModelChoosingTest, changesNothingWhenThePanelIsDismissed) {
    choosePackage();
    type("secret");
    panels.answer = std::nullopt;
    model->chooseBackup();
    EXPECT_EQ(model->packageURL(), path("Family Photos.ambrel"));
    EXPECT_EQ(model->credential().view(), u"secret");
}

TEST_F(RecoveryViewModelChoosingTest, acceptsAnUpperCaseExtensionAndAPathWithDotsAndATrailingSeparator) {
    std::filesystem::create_directory(path("Old.AMBREL"));
    panels.answer = path("temporary/.././Old.AMBREL/");
    untilAnnounced([this] { model->chooseBackup(); });
    EXPECT_EQ(model->packageURL(), path("Old.AMBREL"));
    EXPECT_FALSE(model->presentedError());
}

TEST_F(RecoveryViewModelChoosingTest, acceptsASymbolicLinkToAPackage) {
    std::filesystem::create_directory_symlink(path("Family Photos.ambrel"), path("link.ambrel"));
    panels.answer = path("link.ambrel");
    untilAnnounced([this] { model->chooseBackup(); });
    EXPECT_EQ(model->packageURL(), path("link.ambrel"));
}

TEST_F(RecoveryViewModelChoosingTest, refusesAPlainFileWithTheExtension) {
    std::ofstream(path("file.ambrel")) << "x";
    expectRefused(path("file.ambrel"));
}

TEST_F(RecoveryViewModelChoosingTest, refusesAFolderWithoutTheExtension) {
    expectRefused(path("temporary"));
}

TEST_F(RecoveryViewModelChoosingTest, refusesAFolderWhoseWholeNameIsTheExtension) {
    std::filesystem::create_directory(path(".ambrel"));
    expectRefused(path(".ambrel"));
}

TEST_F(RecoveryViewModelChoosingTest, refusesAMissingPathAndADanglingLink) {
    expectRefused(path("missing.ambrel"));
    std::filesystem::create_symlink(path("missing.ambrel"), path("dangling.ambrel"));
    expectRefused(path("dangling.ambrel"));
}

TEST_F(RecoveryViewModelChoosingTest, keepsTheStateWhenAChoiceIsRefused) {
    inspect(inspectionDocument());
    panels.answer = path("temporary");
    untilAnnounced([this] { model->chooseBackup(); });
    EXPECT_TRUE(model->presentedError());
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_TRUE(model->inspection());
    EXPECT_TRUE(model->canExport());
}

TEST_F(RecoveryViewModelChoosingTest, clearsEverythingButTheFactorForANewPackage) {
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    exportToTheEndAndInspectAgain();
    type("typed again");
    setEngineThatFails("output could not be written");
    panels.answer = path("Another folder");
    model->chooseDestinationAndExport();
    waitUntil([this] { return model->presentedError().has_value(); });
    choosePackage();
    EXPECT_EQ(model->phase(), Phase::chooseBackup);
    EXPECT_FALSE(model->inspection());
    EXPECT_FALSE(model->selectedSnapshotCode());
    EXPECT_FALSE(model->destinationURL());
    EXPECT_FALSE(model->exportResult());
    EXPECT_FALSE(model->packagePreparationProgress());
    EXPECT_FALSE(model->presentedError());
    EXPECT_TRUE(model->credential().view().isEmpty());
    EXPECT_EQ(model->factor(), AmbrelRecoveryAppFactor::recoveryKey);
}

TEST_F(RecoveryViewModelChoosingTest, clearsAnErrorWhenAPackageIsAccepted) {
    expectRefused(path("temporary"));
    choosePackage();
    EXPECT_FALSE(model->presentedError());
}

TEST_F(RecoveryViewModelChoosingTest, isIgnoredWhileAnInspectionRuns) {
    setEngineThatWaits();
    choosePackage();
    type("secret");
    model->inspectBackup();
    waitUntilEngineRuns();
    const auto panelsBefore = panels.openPanels.size();
    model->chooseBackup();
    model->acceptPackage(path("temporary"));
    EXPECT_EQ(panels.openPanels.size(), panelsBefore);
    EXPECT_EQ(model->phase(), Phase::inspecting);
    EXPECT_FALSE(model->presentedError());
}

TEST_F(RecoveryViewModelChoosingTest, ignoresAnAnswerThatComesDuringAnInspection) {
    setEngineThatWaits();
    choosePackage();
    type("secret");
    panels.staysOpen = true;
    model->chooseBackup();
    model->inspectBackup();
    waitUntilEngineRuns();
    panels.open.at(0)(path("Family Photos.ambrel"));
    EXPECT_EQ(model->phase(), Phase::inspecting);
}

TEST_F(RecoveryViewModelChoosingTest, survivesAnAnswerThatComesAfterTheModelIsGone) {
    panels.staysOpen = true;
    model->chooseBackup();
    model.reset();
    panels.open.at(0)(path("Family Photos.ambrel"));
}

TEST_F(RecoveryViewModelChoosingTest, notifiesObserversBeforeEachChange) {
    std::vector<std::optional<std::filesystem::path>> seen;
    QObject::connect(model.get(), &RecoveryViewModel::aboutToChange, [&] { seen.push_back(model->packageURL()); });
    choosePackage();
    ASSERT_FALSE(seen.empty());
    EXPECT_FALSE(seen.front());
    EXPECT_EQ(model->packageURL(), path("Family Photos.ambrel"));
}

TEST_F(RecoveryViewModelChoosingTest, dismissingAnErrorChangesNothingElse) {
    inspect(inspectionDocument());
    panels.answer = path("temporary");
    untilAnnounced([this] { model->chooseBackup(); });
    model->dismissPresentedError();
    EXPECT_FALSE(model->presentedError());
    EXPECT_EQ(model->phase(), Phase::snapshots);
    EXPECT_TRUE(model->canExport());
}
