#pragma once

#include <cstdint>

/// The memory of this process, as the system counts it. Linux only.
class PeakMemory {
public:
    /// Gives freed memory back to the system and starts counting here.
    PeakMemory();

    /// The most bytes by which the resident memory has exceeded that of the start since then. Throws
    /// std::runtime_error if the system does not tell.
    std::int64_t growth() const;

private:
    std::int64_t start_;
};
