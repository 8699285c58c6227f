#pragma once

#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QString>

#include <optional>

/// What a screen reader says when `before` has become `after`: an operation that begins, the step it led to, or an
/// error with its title and body. None where nothing happened that the user would not notice by other means. Never
/// holds the secret. Main thread.
std::optional<QString> stepAnnouncement(const RecoveryScreenState& before, const RecoveryScreenState& after);
