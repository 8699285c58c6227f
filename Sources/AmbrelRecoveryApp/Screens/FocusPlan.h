#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <optional>

/// Where the focus belongs after the workflow has advanced.
namespace FocusPlan {

enum class Target {
    chooseButton,
    secretField,
    cancelButton,
    snapshotList,
    exportButton,
    chooseAnotherButton,
    revealButton
};

/// Returns where the focus is when the view is created. Any thread.
Target first(const RecoveryScreenState& state);

/// Returns where the focus goes when `before` has become `after`, or std::nullopt if it stays. Any thread.
std::optional<Target> target(const RecoveryScreenState& before, const RecoveryScreenState& after);

} // namespace FocusPlan
