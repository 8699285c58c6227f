#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <optional>

/// Where the keyboard should act after the workflow has gone on.
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

/// Where the focus is when the view is made. Any thread.
Target first(const RecoveryScreenState& state);

/// Where the focus goes when `before` has become `after`, or none where it stays. Any thread.
std::optional<Target> target(const RecoveryScreenState& before, const RecoveryScreenState& after);

} // namespace FocusPlan
