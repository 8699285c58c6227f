#include "AmbrelRecoveryApp/Screens/FocusPlan.h"

#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"
#include "ScreensTestSupport.h"

#include <gtest/gtest.h>

namespace {

using FocusPlan::Target;
using Phase = RecoveryScreenState::Phase;

std::optional<Target> between(Phase before, Phase after) {
    return FocusPlan::target(stateIn(before), stateIn(after));
}

TEST(FocusPlanTest, staysWhereTheUserIsWhileThePhaseStays) {
    for (const Phase phase : allPhases) {
        EXPECT_EQ(between(phase, phase), std::nullopt);
    }
}

TEST(FocusPlanTest, goesToTheFieldOnceAPackageIsChosen) {
    RecoveryScreenState chosen = stateIn(Phase::chooseBackup);
    chosen.packageURL = "/backups/a.ambrel";
    EXPECT_EQ(FocusPlan::target(stateIn(Phase::chooseBackup), chosen), Target::secretField);
}

TEST(FocusPlanTest, goesToTheFieldAfterARefusedSecret) {
    RecoveryScreenState refused = stateIn(Phase::chooseBackup);
    refused.packageURL = "/backups/a.ambrel";
    EXPECT_EQ(FocusPlan::target(stateIn(Phase::inspecting), refused), Target::secretField);
    EXPECT_EQ(FocusPlan::target(stateIn(Phase::preparingPackage), refused), Target::secretField);
}

TEST(FocusPlanTest, goesToTheCancelButtonOfEveryOperation) {
    EXPECT_EQ(between(Phase::chooseBackup, Phase::preparingPackage), Target::cancelButton);
    EXPECT_EQ(between(Phase::preparingPackage, Phase::inspecting), Target::cancelButton);
    EXPECT_EQ(between(Phase::snapshots, Phase::exporting), Target::cancelButton);
}

TEST(FocusPlanTest, goesToTheListAfterAnInspection) {
    EXPECT_EQ(between(Phase::inspecting, Phase::snapshots), Target::snapshotList);
}

TEST(FocusPlanTest, goesToTheButtonForAnotherPackageIfThereAreNoSnapshots) {
    RecoveryScreenState empty = stateIn(Phase::snapshots);
    empty.snapshots = std::make_shared<SortedSnapshots>(inspection({}));
    EXPECT_EQ(FocusPlan::target(stateIn(Phase::inspecting), empty), Target::chooseAnotherButton);
}

TEST(FocusPlanTest, goesToTheExportButtonAfterAnUnfinishedExport) {
    EXPECT_EQ(between(Phase::exporting, Phase::snapshots), Target::exportButton);
}

TEST(FocusPlanTest, goesToTheButtonThatRevealsTheFolderAtTheEnd) {
    EXPECT_EQ(between(Phase::exporting, Phase::complete), Target::revealButton);
}

TEST(FocusPlanTest, goesToTheBeginningWhenTheUserStartsAgain) {
    EXPECT_EQ(between(Phase::complete, Phase::chooseBackup), Target::chooseButton);
    EXPECT_EQ(FocusPlan::first(RecoveryScreenState()), Target::chooseButton);
}

TEST(FocusPlanTest, beginsAtTheMainControlOfThePhaseInANewView) {
    EXPECT_EQ(FocusPlan::first(stateIn(Phase::inspecting)), Target::cancelButton);
    EXPECT_EQ(FocusPlan::first(stateIn(Phase::snapshots)), Target::snapshotList);
    EXPECT_EQ(FocusPlan::first(stateIn(Phase::complete)), Target::revealButton);
}

TEST(InterfaceDirectionTest, followsTheLanguageOfTheTexts) {
    EXPECT_EQ(interfaceDirection(), Qt::LeftToRight);
    const ScopedLanguage arabic("ar", "ar_EG.UTF-8");
    EXPECT_EQ(interfaceDirection(), Qt::RightToLeft);
}

TEST(InterfaceDirectionTest, isThatOfEnglishIfTheCatalogueLacksTheLanguage) {
    const ScopedLanguage hebrew("he", "he_IL.UTF-8");
    EXPECT_EQ(interfaceDirection(), Qt::LeftToRight);
}

TEST(RecoveryScreenStateTest, isBusyInTheThreePhasesOfAnOperation) {
    for (const Phase phase : allPhases) {
        EXPECT_EQ(stateIn(phase).isBusy(),
                  phase == Phase::preparingPackage || phase == Phase::inspecting || phase == Phase::exporting);
    }
}

} // namespace
