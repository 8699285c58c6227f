#include "SampleSnapshots.h"

#include <utility>

std::shared_ptr<const AmbrelRecoveryInspectionDocument> SampleSnapshots::inspection(int count) {
    constexpr std::int64_t firstMilliseconds = 1'000'000'000'000;
    constexpr std::int64_t quarterOfAnHour = 900'000;
    std::vector<AmbrelRecoveryInspectionDocument::Snapshot> snapshots;
    for (std::uint64_t number = 0; number < static_cast<std::uint64_t>(count); ++number) {
        snapshots.push_back({
            .selectionCode = "snapshot-with-a-code-of-usual-length-" + std::to_string(number),
            .createdAtUTCMilliseconds = firstMilliseconds + static_cast<std::int64_t>(number) * quarterOfAnHour,
            .counts = {.items = 4'000 + number, .resources = 9'000 + 2 * number},
            .logicalPlaintextByteCount = 18'400'000'000 + number * 3'000'000,
            .payloadFileEvidence = {.complete = number % 10 != 3},
        });
    }
    return std::make_shared<const AmbrelRecoveryInspectionDocument>(
        AmbrelRecoveryInspectionDocument{.snapshots = std::move(snapshots)});
}

SnapshotRows SampleSnapshots::rows(const std::shared_ptr<const AmbrelRecoveryInspectionDocument>& inspection) {
    return {
        .snapshots = std::make_shared<const SortedSnapshots>(inspection),
        .selectedCode = inspection->snapshots.back().selectionCode,
        .locale = icu::Locale::getEnglish(),
        .itemsLabel = QStringLiteral("Items"),
        .filesLabel = QStringLiteral("Files"),
        .completeLabel = QStringLiteral("Complete"),
        .incompleteLabel = QStringLiteral("Incomplete"),
    };
}
