#include "WorkflowTable.h"

#include <algorithm>

namespace {

using WorkflowTable::Change;
using WorkflowTable::Expected;
using WorkflowTable::Step;
using Phase = RecoveryViewModel::Phase;

/// Adds what is published before each announced change. False where the step is refused.
bool takeStep(Expected& expected, const Step& step, std::vector<WorkflowState>& states) {
    if (!step.guard(expected)) {
        return false;
    }
    for (const Change& change : step.changes) {
        if (change.isAnnounced) {
            states.push_back(expected.published());
        }
        change.apply(expected);
    }
    return true;
}

} // namespace

bool WorkflowTable::Expected::isBusy() const {
    return shown.phase == Phase::preparingPackage || shown.phase == Phase::inspecting ||
           shown.phase == Phase::exporting;
}

bool WorkflowTable::Expected::canInspect() const {
    return !shown.package.empty() && !shown.credential.empty() && !isBusy();
}

bool WorkflowTable::Expected::canExport() const {
    return shown.inspection != 0 && !shown.selection.empty() && session && session->factor == shown.factor && !isBusy();
}

WorkflowState WorkflowTable::Expected::published() const {
    WorkflowState state = shown;
    state.canInspect = canInspect();
    state.canExport = canExport();
    return state;
}

std::vector<WorkflowState> WorkflowTable::Expected::take(const Operation& operation) {
    ++number;
    std::vector<WorkflowState> states;
    for (const Step& step : operation.steps) {
        takeStep(*this, step, states);
    }
    states.push_back(published());
    return states;
}

bool WorkflowTable::Expected::wouldGoOnWith(const Operation& operation) const {
    Expected after = *this;
    ++after.number;
    std::vector<WorkflowState> states;
    const bool isTaken = std::ranges::all_of(
        operation.steps, [&after, &states](const Step& step) { return takeStep(after, step, states); });
    return isTaken && (after.published() != published() || after.session != session);
}
