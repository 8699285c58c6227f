#pragma once

/// SIGTERM, SIGINT and SIGHUP, which ask the program to end. Only on the main thread.
namespace StopRequest {

/// From now on these signals do not end the program immediately but are recorded, so that work in progress can be
/// undone first. This lasts until the program ends: work that is complete is reported as complete. Signals that were
/// ignored when the program started stay ignored. May be called more than once.
void record();

/// Throws Stopped if such a signal has been recorded.
void throwIfRequested();

/// Ends the program with the signal itself, as a waiting parent expects.
[[noreturn]] void endBySignal(int signal);

} // namespace StopRequest
