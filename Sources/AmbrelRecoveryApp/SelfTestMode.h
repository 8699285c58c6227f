#pragma once

#include <span>

/// The non-interactive mode of the executable: it runs the engine's own self-test and relays what that prints. It uses
/// no toolkit and needs no display.
namespace SelfTestMode {

/// Whether some element of the process's argument list, the program's path included, is exactly "--self-test".
bool isRequested(std::span<const char* const> arguments);

/// Runs the engine of the main bundle with "self-test", relays its standard output and then its standard error, and
/// returns its exit status. Where there is no result to relay, one line goes to standard error and 1 is returned.
int run();

} // namespace SelfTestMode
