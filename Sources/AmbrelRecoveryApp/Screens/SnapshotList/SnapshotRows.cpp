#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

QString labeled(const QString& label, const QString& value) {
    return label + QStringLiteral(": ") + value;
}

} // namespace

SnapshotRowContent SnapshotRows::row(std::size_t row) const {
    const SortedSnapshots::Snapshot& snapshot = snapshots->at(row);
    const bool isComplete = snapshot.payloadFileEvidence.complete;
    constexpr std::uint64_t largestSize = std::numeric_limits<std::int64_t>::max();
    const auto size = static_cast<std::int64_t>(std::min(snapshot.logicalPlaintextByteCount, largestSize));
    return {
        .date = RecoveryViewModel::formattedDate(snapshot.createdAtUTCMilliseconds),
        .facts = {labeled(itemsLabel, AmbrelStrings::formattedNumber(snapshot.counts.items, locale)),
                  labeled(filesLabel, AmbrelStrings::formattedNumber(snapshot.counts.resources, locale)),
                  AmbrelStrings::formattedFileSize(size, locale)},
        .payload = isComplete ? completeLabel : incompleteLabel,
        .isComplete = isComplete,
        .isSelected = selectedCode == snapshot.selectionCode,
    };
}

std::optional<std::size_t> SnapshotRows::selectedRow() const {
    return snapshots && selectedCode ? snapshots->rowOf(*selectedCode) : std::nullopt;
}
