#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SortedSnapshots.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

/// Everything that the screens show of the workflow, taken from the model at one moment. A plain value; the credential
/// is not in it, since a secret is not copied about.
struct RecoveryScreenState {
    using Phase = RecoveryViewModel::Phase;

    Phase phase = Phase::chooseBackup;
    std::optional<std::filesystem::path> packageURL;
    AmbrelRecoveryAppFactor factor = AmbrelRecoveryAppFactor::backupPassphrase;
    /// The accepted inspection's, or null.
    std::shared_ptr<const SortedSnapshots> snapshots;
    std::optional<std::string> selectedSnapshotCode;
    std::shared_ptr<const AmbrelRecoveryExportDocument> exportResult;
    std::optional<double> packagePreparationProgress;
    std::optional<RecoveryViewModel::PresentedError> presentedError;
    bool canInspect = false;
    bool canExport = false;

    /// Whether a long operation runs.
    bool isBusy() const { return RecoveryViewModel::isBusy(phase); }

    /// The state of `model`. Snapshots that are in `known` already, which may be null, are not sorted again. Main
    /// thread.
    static RecoveryScreenState of(const RecoveryViewModel& model, const std::shared_ptr<const SortedSnapshots>& known);
};
