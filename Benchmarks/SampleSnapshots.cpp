#include "SampleSnapshots.h"

std::shared_ptr<const AmbrelRecoveryInspectionDocument> SampleSnapshots::inspection(int count) {
    constexpr std::int64_t firstMilliseconds = 1'000'000'000'000;
    constexpr std::int64_t quarterOfAnHour = 900'000;
    auto document = std::make_shared<AmbrelRecoveryInspectionDocument>();
    document->snapshots.resize(static_cast<std::size_t>(count));
    std::uint64_t number = 0;
    for (auto& snapshot : document->snapshots) {
        snapshot.selectionCode = "snapshot-with-a-code-of-usual-length-" + std::to_string(number);
        snapshot.createdAtUTCMilliseconds = firstMilliseconds + static_cast<std::int64_t>(number) * quarterOfAnHour;
        snapshot.counts.items = 4'000 + number;
        snapshot.counts.resources = 9'000 + 2 * number;
        snapshot.logicalPlaintextByteCount = 18'400'000'000 + number * 3'000'000;
        snapshot.payloadFileEvidence.complete = number % 10 != 3;
        ++number;
    }
    return document;
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
