#pragma once

#include "Common/Failure.h"

#include <string>
#include <string_view>

/// The engine's message and exit status for each failure.
namespace FailureText {

/// The sentence by which a caller recognizes the failure.
std::string_view sentence(FailureReason reason);

/// The exit status: 1 to 9, never 0 and never 15.
int exitStatus(FailureReason reason);

/// The complete line for standard error, with a line feed. `program` is the name of the reporting program.
std::string line(std::string_view program, const Failure& failure);

} // namespace FailureText
