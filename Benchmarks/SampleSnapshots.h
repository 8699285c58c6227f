#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <memory>

/// Snapshots to measure with, one a quarter of an hour.
namespace SampleSnapshots {

/// `count` snapshots from old to new, the order in which an engine writes a history.
std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection(int count);

/// The rows of `inspection` in English, the newest selected. Sorts.
SnapshotRows rows(const std::shared_ptr<const AmbrelRecoveryInspectionDocument>& inspection);

} // namespace SampleSnapshots
