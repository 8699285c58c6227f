#pragma once

#include "Format/PayloadState.h"

#include <cstdint>

/// What reading one payload file to its end has shown.
struct PayloadEvidence {
    PayloadState state = PayloadState::missing;
    /// Size of the encrypted file as found; 0 when missing.
    std::uint64_t fileByteCount = 0;
    /// Size of the original; only known when matching.
    std::uint64_t plaintextByteCount = 0;
};
