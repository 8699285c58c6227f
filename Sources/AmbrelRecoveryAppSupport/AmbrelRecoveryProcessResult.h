#pragma once

#include <cstdint>
#include <string>

/// The result of a finished run of the engine.
struct AmbrelRecoveryProcessResult {
    /// The engine's exit status, or the number of the signal that ended it (15 for a stopped run).
    std::int32_t exitCode = 0;
    /// All bytes that the engine wrote to standard output.
    std::string standardOutput;
    /// All bytes that the engine wrote to standard error.
    std::string standardError;
};
