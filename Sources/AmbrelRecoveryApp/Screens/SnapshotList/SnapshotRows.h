#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowContent.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SortedSnapshots.h"

#include <QString>
#include <unicode/locid.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

/// The rows of the snapshot list. A row is formatted only on request, so that a hundred thousand rows cost no more than
/// ten. Two values are equal if they show the same snapshots and selection in the same language.
struct SnapshotRows {
    /// Null for an empty list.
    std::shared_ptr<const SortedSnapshots> snapshots;
    std::optional<std::string> selectedCode;
    icu::Locale locale;
    QString itemsLabel;
    QString filesLabel;
    QString completeLabel;
    QString incompleteLabel;

    std::size_t count() const { return snapshots ? snapshots->count() : 0; }
    /// `row` must be less than count().
    SnapshotRowContent row(std::size_t row) const;
    /// The selected row, or std::nullopt.
    std::optional<std::size_t> selectedRow() const;

    bool operator==(const SnapshotRows&) const = default;
};
