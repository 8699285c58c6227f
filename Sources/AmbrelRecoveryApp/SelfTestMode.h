#pragma once

#include <span>

/// The non-interactive mode of the executable: runs the engine's self-test and relays its output. Does not use Qt and
/// needs no display.
namespace SelfTestMode {

/// Whether any of the process's arguments, including the program's path, is exactly "--self-test".
bool isRequested(std::span<const char* const> arguments);

/// Runs the engine of the main bundle with "self-test", relays its standard output, then its standard error, and
/// returns its exit status. If there is no result to relay, writes one line to standard error and returns 1.
int run();

} // namespace SelfTestMode
