#pragma once

#include "AmbrelRecoveryApp/Screens/SnapshotList/SnapshotRows.h"

#include <memory>

/// Sample snapshots for measurements, one every quarter of an hour.
namespace SampleSnapshots {

/// `count` snapshots, oldest first, which is the order in which an engine writes a history.
std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection(int count);

/// The rows of `inspection` in English, sorted here, with the newest selected.
SnapshotRows rows(const std::shared_ptr<const AmbrelRecoveryInspectionDocument>& inspection);

} // namespace SampleSnapshots
