#pragma once

#include <cstdint>
#include <string>

/// What one finished run of the engine left.
struct AmbrelRecoveryProcessResult {
    /// The engine's exit status, or the number of the signal that ended it (15 for a stopped run).
    std::int32_t exitCode = 0;
    /// Every byte that the engine wrote to standard output.
    std::string standardOutput;
    /// Every byte that the engine wrote to standard error.
    std::string standardError;
};
