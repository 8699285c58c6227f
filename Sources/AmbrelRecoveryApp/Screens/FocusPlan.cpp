#include "AmbrelRecoveryApp/Screens/FocusPlan.h"

namespace {

using FocusPlan::Target;
using Phase = RecoveryScreenState::Phase;

Target targetOfNewPhase(const RecoveryScreenState& before, const RecoveryScreenState& after) {
    switch (after.phase) {
    case Phase::chooseBackup:
        return after.packageURL ? Target::secretField : Target::chooseButton;
    case Phase::preparingPackage:
    case Phase::inspecting:
    case Phase::exporting:
        return Target::cancelButton;
    case Phase::snapshots:
        if (before.phase == Phase::exporting) {
            return Target::exportButton;
        }
        return after.snapshots->count() == 0 ? Target::chooseAnotherButton : Target::snapshotList;
    case Phase::complete:
        return Target::revealButton;
    }
    Q_UNREACHABLE();
}

} // namespace

Target FocusPlan::first(const RecoveryScreenState& state) {
    return targetOfNewPhase(state, state);
}

std::optional<Target> FocusPlan::target(const RecoveryScreenState& before, const RecoveryScreenState& after) {
    const bool isOtherPackage = after.phase == Phase::chooseBackup && before.packageURL != after.packageURL;
    return before.phase != after.phase || isOtherPackage ? std::optional(targetOfNewPhase(before, after))
                                                         : std::nullopt;
}
