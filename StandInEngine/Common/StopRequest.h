#pragma once

#include <array>
#include <csignal>

/// While an instance exists, SIGTERM, SIGINT and SIGHUP do not end the program immediately but are recorded, so that
/// work in progress can be undone first. Signals that were ignored when the program started stay ignored. May be
/// nested; only on the main thread.
class StopRequest {
public:
    StopRequest();
    ~StopRequest();
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;

    /// Throws Stopped if such a signal has arrived.
    static void throwIfRequested();

    /// Ends the program with the signal itself, as a waiting parent expects.
    [[noreturn]] static void endBySignal(int signal);

private:
    static constexpr std::array<int, 3> signals = {SIGTERM, SIGINT, SIGHUP};
    std::array<struct sigaction, signals.size()> previous_{};
};
