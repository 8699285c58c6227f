#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

namespace {

std::shared_ptr<const SortedSnapshots>
sortedSnapshots(const std::shared_ptr<const AmbrelRecoveryInspectionDocument>& inspection,
                const std::shared_ptr<const SortedSnapshots>& known) {
    if (!inspection) {
        return nullptr;
    }
    if (known && known->inspection() == inspection) {
        return known;
    }
    return std::make_shared<SortedSnapshots>(inspection);
}

} // namespace

RecoveryScreenState RecoveryScreenState::of(const RecoveryViewModel& model,
                                            const std::shared_ptr<const SortedSnapshots>& known) {
    return {
        .phase = model.phase(),
        .packageURL = model.packageURL(),
        .factor = model.factor(),
        .snapshots = sortedSnapshots(model.inspection(), known),
        .selectedSnapshotCode = model.selectedSnapshotCode(),
        .exportResult = model.exportResult(),
        .packagePreparationProgress = model.packagePreparationProgress(),
        .presentedError = model.presentedError(),
        .canInspect = model.canInspect(),
        .canExport = model.canExport(),
    };
}
