#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QString>

#include <optional>

/// Returns what a screen reader announces when `before` has become `after`: an operation that begins, the step it led
/// to, or an error with its title and body. Returns std::nullopt if nothing happened that the user would not notice
/// otherwise. Never contains the secret. Main thread.
std::optional<QString> stepAnnouncement(const RecoveryScreenState& before, const RecoveryScreenState& after);
