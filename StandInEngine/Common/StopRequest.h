#pragma once

#include <array>
#include <csignal>

/// While one exists, SIGTERM, SIGINT and SIGHUP do not end the program at once but are remembered, so that work in
/// progress can be taken back first. A signal that the program was started to ignore stays ignored.
/// They may be nested; on the main thread only.
class StopRequest {
public:
    StopRequest();
    ~StopRequest();
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;

    /// Throws Stopped when such a signal has arrived.
    static void throwIfRequested();

    /// Ends the program by the signal itself, as the one who waits for it expects.
    [[noreturn]] static void endBySignal(int signal);

private:
    static constexpr std::array<int, 3> signals = {SIGTERM, SIGINT, SIGHUP};
    std::array<struct sigaction, signals.size()> previous_{};
};
