#pragma once

#include "../Support/TestEnvironment.h"
#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// A snapshot with this code and creation time, complete and of a few items.
AmbrelRecoveryInspectionDocument::Snapshot snapshot(const std::string& code, std::int64_t createdAtUTCMilliseconds);

/// An inspection of these snapshots.
std::shared_ptr<const AmbrelRecoveryInspectionDocument>
inspection(std::vector<AmbrelRecoveryInspectionDocument::Snapshot> snapshots,
           const std::string& disposition = "single-branch");

/// A report of an export, to be put into a state.
std::shared_ptr<const AmbrelRecoveryExportDocument> exportResult(const AmbrelRecoveryExportDocument& document);

/// The state in `phase` after an inspection with one snapshot; without one for the phases before.
RecoveryScreenState stateIn(RecoveryScreenState::Phase phase);

/// Every phase, in the order of the workflow.
inline constexpr RecoveryScreenState::Phase allPhases[] = {
    RecoveryScreenState::Phase::chooseBackup, RecoveryScreenState::Phase::preparingPackage,
    RecoveryScreenState::Phase::inspecting,   RecoveryScreenState::Phase::snapshots,
    RecoveryScreenState::Phase::exporting,    RecoveryScreenState::Phase::complete,
};
