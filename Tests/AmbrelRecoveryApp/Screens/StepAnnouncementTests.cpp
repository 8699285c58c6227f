#include "AmbrelRecoveryApp/Screens/StepAnnouncement.h"

#include "ScreensTestSupport.h"

#include <gtest/gtest.h>

namespace {

using Phase = RecoveryScreenState::Phase;

std::optional<QString> between(Phase before, Phase after) {
    return stepAnnouncement(stateIn(before), stateIn(after));
}

RecoveryScreenState withError(RecoveryScreenState state, const QUuid& id) {
    state.presentedError = RecoveryViewModel::PresentedError{
        .id = id, .title = QStringLiteral("Not opened"), .body = QStringLiteral("Check the passphrase.")};
    return state;
}

} // namespace

TEST(StepAnnouncementTest, saysNothingWhileThePhaseStays) {
    for (const Phase phase : allPhases) {
        EXPECT_EQ(between(phase, phase), std::nullopt);
    }
}

TEST(StepAnnouncementTest, saysWhichOperationBegins) {
    EXPECT_EQ(between(Phase::chooseBackup, Phase::preparingPackage), QStringLiteral("Preparing the backup"));
    EXPECT_EQ(between(Phase::preparingPackage, Phase::inspecting), QStringLiteral("Inspecting the backup…"));
    EXPECT_EQ(between(Phase::snapshots, Phase::exporting), QStringLiteral("Exporting…"));
}

TEST(StepAnnouncementTest, saysThatTheSnapshotsAreThere) {
    EXPECT_EQ(between(Phase::inspecting, Phase::snapshots), QStringLiteral("Snapshots"));
}

TEST(StepAnnouncementTest, readsTheNoticeOfAForkWithTheSnapshots) {
    RecoveryScreenState fork = stateIn(Phase::snapshots);
    fork.snapshots = std::make_shared<const SortedSnapshots>(inspection({snapshot("a", 1)}, "unresolved-fork"));
    const std::optional<QString> announcement = stepAnnouncement(stateIn(Phase::inspecting), fork);
    ASSERT_TRUE(announcement.has_value());
    EXPECT_EQ(announcement->count(u'\n'), 2);
    EXPECT_TRUE(announcement->startsWith(QStringLiteral("Snapshots\n")));
}

TEST(StepAnnouncementTest, saysThatThereAreNoSnapshots) {
    RecoveryScreenState empty = stateIn(Phase::snapshots);
    empty.snapshots = std::make_shared<const SortedSnapshots>(inspection({}));
    const std::optional<QString> announcement = stepAnnouncement(stateIn(Phase::inspecting), empty);
    ASSERT_TRUE(announcement.has_value());
    EXPECT_TRUE(announcement->startsWith(QStringLiteral("Snapshots\nThis backup holds no snapshots")));
}

TEST(StepAnnouncementTest, readsTheCountAtTheEnd) {
    RecoveryScreenState complete = stateIn(Phase::complete);
    complete.exportResult = exportResult({.recoveredItemCount = 4812});
    EXPECT_EQ(stepAnnouncement(stateIn(Phase::exporting), complete),
              QStringLiteral("Export complete\nExported: 4,812"));
}

TEST(StepAnnouncementTest, readsAnErrorWithItsBodyInEveryPhase) {
    for (const Phase phase : allPhases) {
        EXPECT_EQ(stepAnnouncement(stateIn(Phase::inspecting), withError(stateIn(phase), QUuid::createUuid())),
                  QStringLiteral("Not opened\nCheck the passphrase."));
    }
}

TEST(StepAnnouncementTest, readsTheSameErrorAgainOnlyWhenItIsAnotherOne) {
    const RecoveryScreenState shown = withError(stateIn(Phase::chooseBackup), QUuid::createUuid());
    EXPECT_EQ(stepAnnouncement(shown, shown), std::nullopt);
    EXPECT_NE(stepAnnouncement(shown, withError(stateIn(Phase::chooseBackup), QUuid::createUuid())), std::nullopt);
}

TEST(StepAnnouncementTest, saysNothingWhenAnOperationEndsWhereItBegan) {
    EXPECT_EQ(between(Phase::inspecting, Phase::chooseBackup), std::nullopt);
    EXPECT_EQ(between(Phase::exporting, Phase::snapshots), std::nullopt);
    EXPECT_EQ(between(Phase::preparingPackage, Phase::chooseBackup), std::nullopt);
}

TEST(StepAnnouncementTest, saysWhatToDoWhenTheUserStartsAgain) {
    for (const Phase phase : {Phase::snapshots, Phase::complete}) {
        EXPECT_EQ(between(phase, Phase::chooseBackup), QStringLiteral("Choose backup package"));
    }
}

TEST(StepAnnouncementTest, speaksTheLanguageOfTheInterface) {
    const ScopedLanguage german("de", "de_DE.UTF-8");
    EXPECT_EQ(between(Phase::chooseBackup, Phase::preparingPackage), QStringLiteral("Backup wird vorbereitet"));
}
