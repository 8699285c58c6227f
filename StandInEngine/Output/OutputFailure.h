#pragma once

#include "Common/Failure.h"

/// Maps errno values to failures when something is created at the destination.
namespace OutputFailure {

/// While the destination is checked, or the folder is created or renamed.
Failure atDestination(int error);

/// While content is written into the folder.
Failure whileWriting();

} // namespace OutputFailure
