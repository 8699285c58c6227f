#pragma once

/// For as long as it lives: no core dumps, no reading of this process's memory by the user's other processes, write
/// errors instead of signals for a closed pipe or a reached file size limit, and the end of this process when the
/// one that started it ends. Made first thing in main().
class ProcessHardening {
public:
    ProcessHardening();
    /// Allows inspection again: the secrets are gone by then, and leak checkers look at the process as it exits.
    ~ProcessHardening();
    ProcessHardening(const ProcessHardening&) = delete;
    ProcessHardening& operator=(const ProcessHardening&) = delete;
};
