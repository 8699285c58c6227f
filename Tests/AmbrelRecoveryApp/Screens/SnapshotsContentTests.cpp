#include "AmbrelRecoveryApp/Screens/SnapshotsContent.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "ScreensTestSupport.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Phase = RecoveryScreenState::Phase;
using Snapshot = AmbrelRecoveryInspectionDocument::Snapshot;

RecoveryScreenState stateWith(std::vector<Snapshot> snapshots, const std::string& disposition = "single-branch") {
    RecoveryScreenState state = stateIn(Phase::snapshots);
    state.snapshots = std::make_shared<SortedSnapshots>(inspection(std::move(snapshots), disposition));
    return state;
}

SnapshotRowContent rowOf(const Snapshot& snapshot) {
    return snapshotsContent(stateWith({snapshot})).rows.row(0);
}

std::vector<std::string> codes(const SortedSnapshots& snapshots) {
    std::vector<std::string> codes;
    for (std::size_t row = 0; row < snapshots.count(); ++row) {
        codes.push_back(snapshots.at(row).selectionCode);
    }
    return codes;
}

TEST(SortedSnapshotsTest, theNewestComesFirst) {
    const SortedSnapshots sorted(inspection({snapshot("old", 1), snapshot("new", 3), snapshot("middle", 2)}));
    EXPECT_EQ(codes(sorted), (std::vector<std::string>{"new", "middle", "old"}));
}

TEST(SortedSnapshotsTest, snapshotsOfTheSameTimeKeepTheEnginesOrder) {
    const SortedSnapshots sorted(
        inspection({snapshot("a", 5), snapshot("b", 7), snapshot("c", 5), snapshot("d", 7), snapshot("e", 5)}));
    EXPECT_EQ(codes(sorted), (std::vector<std::string>{"b", "d", "a", "c", "e"}));
}

TEST(SortedSnapshotsTest, manySnapshotsOfTheSameTimeKeepTheEnginesOrder) {
    // More than the sixteen that the standard library's other sorting leaves in their order by chance.
    std::vector<Snapshot> snapshots;
    std::vector<std::string> expected;
    for (int number = 0; number < 100; ++number) {
        expected.push_back("code " + std::to_string(number));
        snapshots.push_back(snapshot(expected.back(), 5));
    }
    EXPECT_EQ(codes(SortedSnapshots(inspection(std::move(snapshots)))), expected);
}

TEST(SortedSnapshotsTest, timesBeforeTheEpochComeLast) {
    constexpr std::int64_t earliest = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t latest = std::numeric_limits<std::int64_t>::max();
    const SortedSnapshots sorted(inspection(
        {snapshot("first", earliest), snapshot("before", -1), snapshot("last", latest), snapshot("zero", 0)}));
    EXPECT_EQ(codes(sorted), (std::vector<std::string>{"last", "zero", "before", "first"}));
}

TEST(SortedSnapshotsTest, findsARowByItsCode) {
    const SortedSnapshots sorted(inspection({snapshot("a", 1), snapshot("b", 2)}));
    EXPECT_EQ(sorted.rowOf("a"), 1U);
    EXPECT_EQ(sorted.rowOf("b"), 0U);
    EXPECT_EQ(sorted.rowOf("c"), std::nullopt);
}

TEST(SnapshotsContentTest, withoutAnInspectionTheListIsEmpty) {
    RecoveryScreenState state;
    state.selectedSnapshotCode = "a";
    const SnapshotsContent content = snapshotsContent(state);
    EXPECT_EQ(content.rows.count(), 0U);
    EXPECT_EQ(content.rows.selectedRow(), std::nullopt);
    EXPECT_EQ(content.forkNotice, std::nullopt);
}

TEST(SnapshotsContentTest, saysSoIfABackupHoldsNoSnapshots) {
    EXPECT_EQ(snapshotsContent(stateWith({})).emptyText,
              QStringLiteral("This backup holds no snapshots, so there is nothing to export. Choose another package."));
    EXPECT_EQ(snapshotsContent(stateWith({snapshot("a", 0)})).emptyText, std::nullopt);
    EXPECT_EQ(snapshotsContent(RecoveryScreenState()).emptyText, std::nullopt);
}

TEST(SnapshotsContentTest, onlyAnUnresolvedForkShowsTheNotice) {
    const SnapshotsContent content = snapshotsContent(stateWith({snapshot("a", 0)}, "unresolved-fork"));
    ASSERT_TRUE(content.forkNotice);
    EXPECT_EQ(content.forkNotice->title, QStringLiteral("This backup has two histories"));
    EXPECT_TRUE(content.forkNotice->body.startsWith(QStringLiteral("Two devices wrote to this backup independently.")));
    for (const char* disposition :
         {"no-published-head", "canonical", "single-branch", "", "Unresolved-Fork", "unresolved-fork "}) {
        EXPECT_EQ(snapshotsContent(stateWith({snapshot("a", 0)}, disposition)).forkNotice, std::nullopt) << disposition;
    }
}

TEST(SnapshotsContentTest, withoutASelectionNothingIsSelectedAndNothingCanBeExported) {
    const SnapshotsContent content = snapshotsContent(stateWith({snapshot("a", 0)}, "no-published-head"));
    EXPECT_FALSE(content.rows.row(0).isSelected);
    EXPECT_EQ(content.rows.selectedRow(), std::nullopt);
    EXPECT_FALSE(content.canExport);
}

TEST(SnapshotsContentTest, theSelectedCodeMarksItsRow) {
    RecoveryScreenState state = stateWith({snapshot("a", 1), snapshot("b", 2)});
    state.selectedSnapshotCode = "a";
    const SnapshotRows rows = snapshotsContent(state).rows;
    EXPECT_FALSE(rows.row(0).isSelected);
    EXPECT_TRUE(rows.row(1).isSelected);
    EXPECT_EQ(rows.selectedRow(), 1U);
}

TEST(SnapshotsContentTest, anUnknownSelectionMarksNoRow) {
    RecoveryScreenState state = stateWith({snapshot("a", 1)});
    state.selectedSnapshotCode = "elsewhere";
    EXPECT_FALSE(snapshotsContent(state).rows.row(0).isSelected);
    EXPECT_EQ(snapshotsContent(state).rows.selectedRow(), std::nullopt);
}

TEST(SnapshotsContentTest, aRowShowsDateFactsAndPayload) {
    constexpr std::int64_t june14 = 1'781'430'060'000;
    const SnapshotRowContent row = rowOf(snapshot("a", june14));
    EXPECT_EQ(row.date, AmbrelStrings::formattedDateTime(
                            std::chrono::sys_time<std::chrono::milliseconds>(std::chrono::milliseconds(june14)),
                            AmbrelStrings::currentFormattingLocale()));
    EXPECT_TRUE(row.date.startsWith(QStringLiteral("Jun 14, 2026")));
    EXPECT_EQ(row.factsLine(), QStringLiteral("Items: 4,812 · Files: 9,630 · 1.5 MB"));
    EXPECT_EQ(row.payload, QStringLiteral("Complete"));
    EXPECT_TRUE(row.isComplete);
    EXPECT_EQ(row.sentence(), row.date + QStringLiteral(", Items: 4,812 · Files: 9,630 · 1.5 MB, Complete"));
}

TEST(SnapshotsContentTest, aSizeBeyondTheSignedRangeIsShownAsTheLargest) {
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    const Snapshot huge = {.logicalPlaintextByteCount = std::numeric_limits<std::uint64_t>::max()};
    EXPECT_EQ(rowOf(huge).facts.last(),
              AmbrelStrings::formattedFileSize(largest, AmbrelStrings::currentFormattingLocale()));
}

TEST(SnapshotsContentTest, countsAreShownOverTheirWholeRange) {
    const Snapshot huge = {.counts = {.items = std::numeric_limits<std::uint64_t>::max()}};
    EXPECT_EQ(rowOf(huge).facts.first(), QStringLiteral("Items: 18,446,744,073,709,551,615"));
}

TEST(SnapshotsContentTest, theEnginesVerdictDecidesThePayloadState) {
    const SnapshotRowContent row = rowOf({.payloadFileEvidence = {.complete = false}});
    EXPECT_FALSE(row.isComplete);
    EXPECT_EQ(row.payload, QStringLiteral("Incomplete"));

    EXPECT_TRUE(rowOf({.payloadFileEvidence = {.complete = true, .missingFileCount = 7}}).isComplete);
}

TEST(SnapshotsContentTest, theRunningExportReplacesItsButton) {
    for (const Phase phase : allPhases) {
        EXPECT_EQ(snapshotsContent(stateIn(phase)).exporting.has_value(), phase == Phase::exporting);
    }
    const SnapshotsContent content = snapshotsContent(stateIn(Phase::exporting));
    EXPECT_EQ(content.exporting->title, QStringLiteral("Exporting…"));
    EXPECT_EQ(content.exporting->fraction, std::nullopt);
    EXPECT_EQ(content.exporting->cancelLabel, QStringLiteral("Cancel"));
}

TEST(SnapshotsContentTest, theExportButtonFollowsTheModel) {
    RecoveryScreenState state = stateIn(Phase::snapshots);
    EXPECT_FALSE(snapshotsContent(state).canExport);
    state.canExport = true;
    EXPECT_TRUE(snapshotsContent(state).canExport);
    EXPECT_EQ(snapshotsContent(state).exportLabel, QStringLiteral("Export"));
    EXPECT_EQ(snapshotsContent(state).title, QStringLiteral("Snapshots"));
    EXPECT_EQ(snapshotsContent(state).chooseAnotherLabel, QStringLiteral("Choose another package"));
}

TEST(SnapshotsContentTest, isEqualForTheSameInspectionSelectionAndLanguage) {
    RecoveryScreenState state = stateWith({snapshot("a", 1), snapshot("b", 2)});
    const SnapshotsContent content = snapshotsContent(state);
    EXPECT_EQ(snapshotsContent(state), content);
    state.selectedSnapshotCode = "a";
    EXPECT_NE(snapshotsContent(state), content);
    state.selectedSnapshotCode = std::nullopt;
    const ScopedLanguage german("de", "de_DE.UTF-8");
    EXPECT_NE(snapshotsContent(state), content);
}

TEST(SnapshotsContentTest, numbersFollowTheLanguage) {
    const ScopedLanguage german("de", "de_DE.UTF-8");
    EXPECT_TRUE(rowOf(snapshot("a", 0)).facts.first().endsWith(QStringLiteral(": 4.812")));
}

} // namespace
