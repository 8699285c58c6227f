#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

QString labelled(const QString& label, const QString& value) {
    return label + QStringLiteral(": ") + value;
}

QString formattedSize(std::uint64_t byteCount, const icu::Locale& locale) {
    constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
    return AmbrelStrings::formattedFileSize(static_cast<std::int64_t>(std::min(byteCount, largest)), locale);
}

} // namespace

SnapshotRowContent SnapshotRows::row(std::size_t row) const {
    const SortedSnapshots::Snapshot& snapshot = snapshots->at(row);
    const bool isComplete = snapshot.payloadFileEvidence.complete;
    return {
        .date = RecoveryViewModel::formattedDate(snapshot.createdAtUTCMilliseconds),
        .facts = {labelled(itemsLabel, AmbrelStrings::formattedNumber(snapshot.counts.items, locale)),
                  labelled(filesLabel, AmbrelStrings::formattedNumber(snapshot.counts.resources, locale)),
                  formattedSize(snapshot.logicalPlaintextByteCount, locale)},
        .payload = isComplete ? completeLabel : incompleteLabel,
        .isComplete = isComplete,
        .isSelected = selectedCode == snapshot.selectionCode,
    };
}

std::optional<std::size_t> SnapshotRows::selectedRow() const {
    if (!snapshots || !selectedCode) {
        return std::nullopt;
    }
    return snapshots->rowOf(*selectedCode);
}
