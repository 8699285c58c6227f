#pragma once

/// During its lifetime: no core dumps, no access to this process's memory from the user's other processes, write errors
/// instead of signals for a closed pipe or an exceeded file size limit, and termination when the parent process ends.
/// Create it first in main().
class ProcessHardening {
public:
    ProcessHardening();
    /// Allows inspection again: all secrets are gone by then, and leak checkers inspect the process at exit.
    ~ProcessHardening();
    ProcessHardening(const ProcessHardening&) = delete;
    ProcessHardening& operator=(const ProcessHardening&) = delete;
};
