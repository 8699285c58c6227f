#include "AmbrelRecoveryApp/Screens/ChooseBackupContent.h"

#include "AmbrelRecoveryApp/Screens/HeaderContent.h"
#include "ScreensTestSupport.h"

#include <gtest/gtest.h>

namespace {

using Phase = RecoveryScreenState::Phase;

TEST(HeaderContentTest, hasABadgeATitleAndABody) {
    const HeaderContent content = headerContent();
    EXPECT_EQ(content.badge, QStringLiteral("AMBREL RECOVERY"));
    EXPECT_EQ(content.title, QStringLiteral("Ambrel Recovery"));
    EXPECT_TRUE(content.body.startsWith(QStringLiteral("Choose the backup package that you saved")));
}

TEST(ChooseBackupContentTest, showsNoPackageBeforeOneIsChosen) {
    const ChooseBackupContent content = chooseBackupContent(stateIn(Phase::chooseBackup));
    EXPECT_EQ(content.package.name, std::nullopt);
    EXPECT_EQ(content.package.hint, QStringLiteral("Choose the backup, or drop it here."));
    EXPECT_EQ(content.package.chooseLabel, QStringLiteral("Choose backup package"));
    EXPECT_TRUE(content.package.canChoose);
}

TEST(ChooseBackupContentTest, showsTheFileNameOfThePackage) {
    RecoveryScreenState state;
    state.packageURL = "/backups/Family Photos.ambrel";
    const ChooseBackupContent content = chooseBackupContent(state);
    EXPECT_EQ(content.package.name, QStringLiteral("Family Photos.ambrel"));
    EXPECT_EQ(content.package.kind, QStringLiteral(".ambrel"));
}

TEST(ChooseBackupContentTest, showsAFileNameInAnyScript) {
    RecoveryScreenState state;
    state.packageURL = "/backups/صور العائلة & <b>写真.ambrel";
    EXPECT_EQ(chooseBackupContent(state).package.name, QStringLiteral("صور العائلة & <b>写真.ambrel"));
}

TEST(ChooseBackupContentTest, showsInvisibleAndDirectionChangingCharacters) {
    RecoveryScreenState state;
    state.packageURL = "/backups/a\nb\u202Elerbma.ambrel";
    EXPECT_EQ(chooseBackupContent(state).package.name, QStringLiteral(u"a\u240Ab[U+202E]lerbma.ambrel"));
}

TEST(ChooseBackupContentTest, aPackageCanBeChosenOnlyWhileNothingRuns) {
    for (const Phase phase : allPhases) {
        const RecoveryScreenState state = stateIn(phase);
        EXPECT_EQ(chooseBackupContent(state).package.canChoose, !state.isBusy());
    }
    EXPECT_FALSE(chooseBackupContent(stateIn(Phase::exporting)).package.canChoose);
    EXPECT_TRUE(chooseBackupContent(stateIn(Phase::complete)).package.canChoose);
}

TEST(ChooseBackupContentTest, theSecretAndItsKindCanBeChangedOnlyWhileNothingRuns) {
    for (const Phase phase : allPhases) {
        const RecoveryScreenState state = stateIn(phase);
        EXPECT_EQ(chooseBackupContent(state).credential.canEdit, !state.isBusy());
    }
}

TEST(ChooseBackupContentTest, thePreparationIsShownOnlyWhileItRuns) {
    for (const Phase phase : allPhases) {
        EXPECT_EQ(chooseBackupContent(stateIn(phase)).preparation.has_value(), phase == Phase::preparingPackage);
    }
}

TEST(ChooseBackupContentTest, thePreparationShowsItsProgress) {
    RecoveryScreenState state = stateIn(Phase::preparingPackage);
    state.packagePreparationProgress = 0.42;
    const std::optional<ChooseBackupContent::Preparation> preparation = chooseBackupContent(state).preparation;
    ASSERT_TRUE(preparation);
    EXPECT_EQ(preparation->title, QStringLiteral("Preparing the backup"));
    EXPECT_TRUE(preparation->body.startsWith(QStringLiteral("If the backup is in iCloud Drive")));
    EXPECT_EQ(preparation->progress.fraction, 0.42);
    EXPECT_EQ(preparation->progress.percent, QStringLiteral("42%"));
    EXPECT_EQ(preparation->progress.cancelLabel, QStringLiteral("Cancel"));
}

TEST(ChooseBackupContentTest, anUnknownProgressHasNoFractionAndNoPercentage) {
    const ChooseBackupContent content = chooseBackupContent(stateIn(Phase::preparingPackage));
    ASSERT_TRUE(content.preparation);
    EXPECT_EQ(content.preparation->progress.fraction, std::nullopt);
    EXPECT_EQ(content.preparation->progress.percent, QString());
}

TEST(ChooseBackupContentTest, percentagesAreNotClamped) {
    RecoveryScreenState state = stateIn(Phase::preparingPackage);
    state.packagePreparationProgress = 1.5;
    EXPECT_EQ(chooseBackupContent(state).preparation->progress.percent, QStringLiteral("150%"));
}

TEST(ChooseBackupContentTest, offersThePassphraseFirst) {
    const ChooseBackupContent::Credential credential = chooseBackupContent(RecoveryScreenState()).credential;
    EXPECT_EQ(credential.title, QStringLiteral("Unlock the backup"));
    EXPECT_EQ(credential.kindLabel, QStringLiteral("Unlock with"));
    EXPECT_EQ(credential.factorLabels,
              (QStringList{QStringLiteral("Backup passphrase"), QStringLiteral("Recovery key")}));
    EXPECT_EQ(credential.chosenFactor, 0);
    EXPECT_EQ(credential.prompt, QStringLiteral("Backup passphrase"));
}

TEST(ChooseBackupContentTest, asksForTheRecoveryKeyOnceItIsChosen) {
    RecoveryScreenState state;
    state.factor = AmbrelRecoveryAppFactor::recoveryKey;
    const ChooseBackupContent::Credential credential = chooseBackupContent(state).credential;
    EXPECT_EQ(credential.chosenFactor, 1);
    EXPECT_EQ(credential.prompt, QStringLiteral("Recovery key"));
}

TEST(ChooseBackupContentTest, theRunningInspectionReplacesItsButton) {
    for (const Phase phase : allPhases) {
        EXPECT_EQ(chooseBackupContent(stateIn(phase)).inspecting.has_value(), phase == Phase::inspecting);
    }
    const ChooseBackupContent content = chooseBackupContent(stateIn(Phase::inspecting));
    EXPECT_EQ(content.inspecting->title, QStringLiteral("Inspecting the backup…"));
    EXPECT_EQ(content.inspecting->fraction, std::nullopt);
}

TEST(ChooseBackupContentTest, theInspectionHasNoFractionEvenAfterAKnownPreparation) {
    RecoveryScreenState state = stateIn(Phase::inspecting);
    state.packagePreparationProgress = 1.0;
    EXPECT_EQ(chooseBackupContent(state).inspecting->fraction, std::nullopt);
}

TEST(ChooseBackupContentTest, theInspectButtonFollowsTheModel) {
    RecoveryScreenState state;
    EXPECT_FALSE(chooseBackupContent(state).canInspect);
    state.canInspect = true;
    EXPECT_TRUE(chooseBackupContent(state).canInspect);
    EXPECT_EQ(chooseBackupContent(state).inspectLabel, QStringLiteral("Inspect backup"));
}

TEST(ChooseBackupContentTest, hasTheFootnote) {
    EXPECT_TRUE(chooseBackupContent(RecoveryScreenState())
                    .footnote.startsWith(QStringLiteral("Inspecting reads the package and shows its snapshots.")));
}

TEST(ChooseBackupContentTest, differsInAnotherLanguage) {
    const ChooseBackupContent english = chooseBackupContent(stateIn(Phase::preparingPackage));
    const ScopedLanguage german("de", "de_DE.UTF-8");
    const ChooseBackupContent other = chooseBackupContent(stateIn(Phase::preparingPackage));
    EXPECT_NE(other, english);
    EXPECT_EQ(other.preparation->title, QStringLiteral("Backup wird vorbereitet"));
}

} // namespace
