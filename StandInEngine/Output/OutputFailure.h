#pragma once

#include "Common/Failure.h"

/// Which failure an errno value means when something is made at the destination.
namespace OutputFailure {

/// While the destination's place is looked at or the folder is made or renamed.
Failure atDestination(int error);

/// While content is written into the folder.
Failure whileWriting();

} // namespace OutputFailure
