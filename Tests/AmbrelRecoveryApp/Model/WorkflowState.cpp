#include "WorkflowState.h"

#include <algorithm>
#include <ostream>

WorkflowState WorkflowState::of(const RecoveryViewModel& model, std::vector<QUuid>& errors) {
    WorkflowState state;
    state.phase = model.phase();
    state.package = model.packageURL() ? model.packageURL()->native() : "";
    state.factor = model.factor();
    state.credential = model.credential().view().toString().toStdString();
    state.inspection = model.inspection() ? model.inspection()->maximumWriterEpoch : 0;
    state.selection = model.selectedSnapshotCode().value_or("");
    state.destination = model.destinationURL() ? model.destinationURL()->native() : "";
    state.report = model.exportResult() ? static_cast<std::uint64_t>(model.exportResult()->recoveredItemCount) : 0;
    state.progress = model.packagePreparationProgress();
    if (const auto& error = model.presentedError()) {
        state.errorTitle = error->title.toStdString();
        state.errorBody = error->body.toStdString();
        const auto known = std::ranges::find(errors, error->id);
        state.errorNumber = static_cast<std::size_t>(known - errors.begin()) + 1;
        if (known == errors.end()) {
            errors.push_back(error->id);
        }
    }
    state.canInspect = model.canInspect();
    state.canExport = model.canExport();
    return state;
}

std::ostream& operator<<(std::ostream& stream, const WorkflowState& state) {
    stream << "phase " << static_cast<int>(state.phase) << ", package '" << state.package << "', factor "
           << static_cast<int>(state.factor) << ", credential '" << state.credential << "', inspection "
           << state.inspection << ", selection '" << state.selection << "', destination '" << state.destination
           << "', report " << state.report << ", progress ";
    state.progress ? stream << *state.progress : stream << "none";
    return stream << ", error " << state.errorNumber << " '" << state.errorTitle << "'"
                  << (state.canInspect ? ", can inspect" : "") << (state.canExport ? ", can export" : "");
}
