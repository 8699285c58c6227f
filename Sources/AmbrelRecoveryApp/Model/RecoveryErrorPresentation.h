#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryFailureKind.h"

/// Turns failures into texts for the user, in the current interface language. Any thread.
namespace RecoveryErrorPresentation {

/// Returns a new error with its own identity for a failure kind.
RecoveryViewModel::PresentedError errorPresentation(AmbrelRecoveryFailureKind kind);

} // namespace RecoveryErrorPresentation
