#pragma once

/// Quits the event loop when the system asks the process to end, for example at logout, so that a running engine is
/// ended as well and nothing is left behind. Signals that the parent process ignored stay ignored.
/// Only one at a time, on the main thread, while the application object exists.
class TerminationSignals {
public:
    TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    /// Restores the default action of the signals.
    ~TerminationSignals();
};
