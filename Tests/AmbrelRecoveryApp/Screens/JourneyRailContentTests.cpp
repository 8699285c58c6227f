#include "AmbrelRecoveryApp/Screens/JourneyRailContent.h"

#include "ScreensTestSupport.h"

#include <gtest/gtest.h>

namespace {

using Phase = RecoveryScreenState::Phase;

std::array<bool, 3> activeIn(Phase phase) {
    const JourneyRailContent content = journeyRailContent(stateIn(phase));
    return {content.steps[0].isActive, content.steps[1].isActive, content.steps[2].isActive};
}

std::array<bool, 3> completedIn(Phase phase) {
    const JourneyRailContent content = journeyRailContent(stateIn(phase));
    return {content.steps[0].isCompleted, content.steps[1].isCompleted, content.steps[2].isCompleted};
}

TEST(JourneyRailContentTest, namesTheThreeStepsInOrder) {
    const JourneyRailContent content = journeyRailContent(RecoveryScreenState());
    EXPECT_EQ(content.steps[0].number, QStringLiteral("01"));
    EXPECT_EQ(content.steps[0].title, QStringLiteral("Choose backup package"));
    EXPECT_EQ(content.steps[1].number, QStringLiteral("02"));
    EXPECT_EQ(content.steps[1].title, QStringLiteral("Snapshots"));
    EXPECT_EQ(content.steps[2].number, QStringLiteral("03"));
    EXPECT_EQ(content.steps[2].title, QStringLiteral("Export complete"));
}

TEST(JourneyRailContentTest, showsBrandAndPromises) {
    const JourneyRailContent content = journeyRailContent(RecoveryScreenState());
    EXPECT_EQ(content.brand, QStringLiteral("Ambrel"));
    EXPECT_EQ(content.product, QStringLiteral("Recovery"));
    EXPECT_EQ(content.noAccount, QStringLiteral("No account"));
    EXPECT_EQ(content.readOnly, QStringLiteral("Read-only"));
}

TEST(JourneyRailContentTest, theFirstStepIsActiveUntilThereIsAnInspection) {
    for (const Phase phase : {Phase::chooseBackup, Phase::preparingPackage, Phase::inspecting}) {
        EXPECT_EQ(activeIn(phase), (std::array{true, false, false}));
        EXPECT_EQ(completedIn(phase), (std::array{false, false, false}));
    }
}

TEST(JourneyRailContentTest, theSecondStepIsActiveWhileASnapshotIsPickedAndExported) {
    for (const Phase phase : {Phase::snapshots, Phase::exporting}) {
        EXPECT_EQ(activeIn(phase), (std::array{false, true, false}));
        EXPECT_EQ(completedIn(phase), (std::array{true, false, false}));
    }
}

TEST(JourneyRailContentTest, theLastStepIsActiveAtTheEndAndNeverCompleted) {
    EXPECT_EQ(activeIn(Phase::complete), (std::array{false, false, true}));
    EXPECT_EQ(completedIn(Phase::complete), (std::array{true, true, false}));
}

TEST(JourneyRailContentTest, anEarlierInspectionKeepsTheFirstStepCompletedDuringTheNext) {
    RecoveryScreenState state = stateIn(Phase::inspecting);
    state.snapshots = std::make_shared<SortedSnapshots>(inspection({}));
    const JourneyRailContent content = journeyRailContent(state);
    EXPECT_TRUE(content.steps[0].isActive);
    EXPECT_TRUE(content.steps[0].isCompleted);
}

TEST(JourneyRailContentTest, promisesFollowTheLanguage) {
    const ScopedLanguage german("de", "de_DE.UTF-8");
    EXPECT_EQ(journeyRailContent(RecoveryScreenState()).noAccount, QStringLiteral("Kein Konto"));
}

} // namespace
