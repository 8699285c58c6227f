#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

/// The snapshots of an inspection in display order: the newest first, and those of the same time in the engine's order.
/// Sorted once, on construction; immutable. Any thread.
class SortedSnapshots {
public:
    using Snapshot = AmbrelRecoveryInspectionDocument::Snapshot;

    /// `inspection` must not be null.
    explicit SortedSnapshots(std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection);

    const std::shared_ptr<const AmbrelRecoveryInspectionDocument>& inspection() const { return inspection_; }
    std::size_t count() const { return order_.size(); }
    /// `row` must be less than count().
    const Snapshot& at(std::size_t row) const { return inspection_->snapshots[order_[row]]; }
    /// The first row whose snapshot has this code, or std::nullopt.
    std::optional<std::size_t> rowOf(std::string_view selectionCode) const;

private:
    std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection_;
    /// For each row, the index of its snapshot in the document.
    std::vector<std::size_t> order_;
};
