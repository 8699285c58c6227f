#include "AmbrelRecoveryApp/Screens/SnapshotsContent.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"
#include "AmbrelRecoveryApp/Screens/OperationProgress.h"

namespace {

using AmbrelStrings::localized;

SnapshotRows rowsOf(const RecoveryScreenState& state) {
    return {
        .snapshots = state.snapshots,
        .selectedCode = state.selectedSnapshotCode,
        .locale = AmbrelStrings::currentFormattingLocale(),
        .itemsLabel = localized(AmbrelStrings::recoveryFactItems()),
        .filesLabel = localized(AmbrelStrings::recoveryFactResources()),
        .completeLabel = localized(AmbrelStrings::recoveryPayloadComplete()),
        .incompleteLabel = localized(AmbrelStrings::recoveryPayloadIncomplete()),
    };
}

bool hasFork(const RecoveryScreenState& state) {
    return state.snapshots &&
           state.snapshots->inspection()->branchDisposition == AmbrelRecoveryInspectionDocument::unresolvedFork;
}

} // namespace

SnapshotsContent snapshotsContent(const RecoveryScreenState& state) {
    SnapshotsContent content{
        .forkNotice = std::nullopt,
        .title = localized(AmbrelStrings::recoverySnapshotsTitle()),
        .rows = rowsOf(state),
        .emptyText = std::nullopt,
        .exporting = std::nullopt,
        .exportLabel = localized(AmbrelStrings::filesExportStart()),
        .canExport = state.canExport,
        .chooseAnotherLabel = localized(AmbrelStrings::recoveryChooseAnotherPackageAction()),
    };
    if (state.snapshots && content.rows.count() == 0) {
        content.emptyText = RecoveryAppCopy::localized(RecoveryAppCopy::Text::noSnapshots);
    }
    if (hasFork(state)) {
        content.forkNotice = NoticeContent{.title = localized(AmbrelStrings::recoveryBranchForkTitle()),
                                           .body = localized(AmbrelStrings::recoveryBranchForkBody())};
    }
    if (state.phase == RecoveryScreenState::Phase::exporting) {
        content.exporting = operationProgress(localized(AmbrelStrings::filesExportRunning()), std::nullopt);
    }
    return content;
}
