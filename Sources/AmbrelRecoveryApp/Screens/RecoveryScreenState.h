#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"
#include "AmbrelRecoveryApp/Screens/SnapshotList/SortedSnapshots.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

/// Everything that the screens show of the workflow, taken from the model at one moment. A plain value. It does not
/// contain the credential, because copies of a secret are avoided.
struct RecoveryScreenState {
    using Phase = RecoveryViewModel::Phase;

    Phase phase = Phase::chooseBackup;
    std::optional<std::filesystem::path> packageURL;
    AmbrelRecoveryAppFactor factor = AmbrelRecoveryAppFactor::backupPassphrase;
    /// Those of the accepted inspection, or null.
    std::shared_ptr<const SortedSnapshots> snapshots;
    std::optional<std::string> selectedSnapshotCode;
    std::shared_ptr<const AmbrelRecoveryExportDocument> exportResult;
    std::optional<double> packagePreparationProgress;
    std::optional<RecoveryViewModel::PresentedError> presentedError;
    bool canInspect = false;
    bool canExport = false;

    /// Whether a long operation is running.
    bool isBusy() const { return RecoveryViewModel::isBusy(phase); }

    /// Returns the state of `model`. If `known`, which may be null, holds the same snapshots, it is reused instead of
    /// sorting them again. Main thread.
    static RecoveryScreenState of(const RecoveryViewModel& model, const std::shared_ptr<const SortedSnapshots>& known);
};
