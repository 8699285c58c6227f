#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

/// The snapshots of an inspection in the order in which they are shown: the newest first, and those of the same time in
/// the engine's order. Sorted once, when it is made; never changes. Any thread.
class SortedSnapshots {
public:
    using Snapshot = AmbrelRecoveryInspectionDocument::Snapshot;

    /// `inspection` is not null.
    explicit SortedSnapshots(std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection);

    const std::shared_ptr<const AmbrelRecoveryInspectionDocument>& inspection() const { return inspection_; }
    std::size_t count() const { return order_.size(); }
    /// `row` is less than count().
    const Snapshot& at(std::size_t row) const { return inspection_->snapshots[order_[row]]; }
    /// The first row whose snapshot has this code, or none.
    std::optional<std::size_t> rowOf(std::string_view selectionCode) const;

private:
    std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection_;
    /// The place in the document of each row.
    std::vector<std::size_t> order_;
};
