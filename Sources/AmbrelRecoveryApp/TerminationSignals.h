#pragma once

/// Ends the event loop in the ordinary way when the system asks the process to end, as at a logout, so that a running
/// engine is ended too and nothing is left behind. Signals that the parent had ignored stay ignored.
/// One at a time, on the main thread, with the application object.
class TerminationSignals {
public:
    TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

    /// Gives the signals their default effect again.
    ~TerminationSignals();
};
