#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRowContent.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SortedSnapshots.h"

#include <QString>
#include <unicode/locid.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

/// The rows of the snapshot list. A row is put into words only when it is asked for, so that a hundred thousand of them
/// cost no more than ten; two values are equal where they show the same snapshots in the same language.
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
    /// `row` is less than count().
    SnapshotRowContent row(std::size_t row) const;
    /// The row that is selected, or none.
    std::optional<std::size_t> selectedRow() const;

    bool operator==(const SnapshotRows&) const = default;
};
