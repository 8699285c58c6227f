#include "ScreensTestSupport.h"

#include <utility>

AmbrelRecoveryInspectionDocument::Snapshot snapshot(const std::string& code, std::int64_t createdAtUTCMilliseconds) {
    return {
        .selectionCode = code,
        .createdAtUTCMilliseconds = createdAtUTCMilliseconds,
        .counts = {.items = 4812, .resources = 9630},
        .logicalPlaintextByteCount = 1'500'000,
        .payloadFileEvidence = {.complete = true},
    };
}

std::shared_ptr<const AmbrelRecoveryInspectionDocument>
inspection(std::vector<AmbrelRecoveryInspectionDocument::Snapshot> snapshots, const std::string& disposition) {
    return std::make_shared<const AmbrelRecoveryInspectionDocument>(AmbrelRecoveryInspectionDocument{
        .branchDisposition = disposition,
        .snapshots = std::move(snapshots),
    });
}

std::shared_ptr<const AmbrelRecoveryExportDocument> exportResult(const AmbrelRecoveryExportDocument& document) {
    return std::make_shared<const AmbrelRecoveryExportDocument>(document);
}

RecoveryScreenState stateIn(RecoveryScreenState::Phase phase) {
    using Phase = RecoveryScreenState::Phase;
    RecoveryScreenState state;
    state.phase = phase;
    if (phase != Phase::chooseBackup) {
        state.packageURL = "/backups/Family Photos.ambrel";
    }
    if (phase == Phase::snapshots || phase == Phase::exporting || phase == Phase::complete) {
        state.snapshots = std::make_shared<SortedSnapshots>(inspection({snapshot("a", 0)}));
    }
    return state;
}
