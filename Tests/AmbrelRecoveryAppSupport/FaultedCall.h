#pragma once

#include <cstddef>
#include <string_view>

/// What a call asks before it is made; SystemCallFaults decides.
namespace FaultedCall {

/// Counts the call. The error with which it has to fail, or 0.
int error(std::string_view name);

/// To be called once the system has done its part, or the call has failed in its place.
void done(std::string_view name);

/// How many bytes a call that transfers `wanted` may move.
std::size_t length(std::size_t wanted);

/// Notes a wait that was asked for, in milliseconds.
void waits(int limit);

/// By how much the wall clock has been set forward.
long secondsSetForward();

} // namespace FaultedCall
