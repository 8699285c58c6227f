#include "AmbrelRecoveryApp/Screens/SnapshotList/SortedSnapshots.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

SortedSnapshots::SortedSnapshots(std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection)
    : inspection_(std::move(inspection)), order_(inspection_->snapshots.size()) {
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    std::ranges::stable_sort(order_, std::greater(), [this](std::size_t place) {
        return inspection_->snapshots[place].createdAtUTCMilliseconds;
    });
}

std::optional<std::size_t> SortedSnapshots::rowOf(std::string_view selectionCode) const {
    const auto place = std::ranges::find_if(order_, [&](std::size_t candidate) {
        return inspection_->snapshots[candidate].selectionCode == selectionCode;
    });
    if (place == order_.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(place - order_.begin());
}
