#pragma once

#include <string>

/// How a program ended and what it said.
struct ProgramResult {
    /// The exit status; -1 when a signal ended it.
    int status = -1;
    /// The signal that ended it; 0 when none did.
    int signal = 0;
    std::string output;
    std::string error;
    long maximumResidentKibibytes = 0;
};
