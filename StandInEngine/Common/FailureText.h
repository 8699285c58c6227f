#pragma once

#include "Common/Failure.h"

#include <string>
#include <string_view>

/// What the engine says, and with which status it ends, for every failure.
namespace FailureText {

/// The sentence by which a caller recognises the failure.
std::string_view sentence(FailureReason reason);

/// The exit status: 1 to 9, never 0 and never 15.
int exitStatus(FailureReason reason);

/// The whole line for standard error, with its line feed. `program` is the name of the program that says it.
std::string line(std::string_view program, const Failure& failure);

} // namespace FailureText
