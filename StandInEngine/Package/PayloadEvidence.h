#pragma once

#include "Format/PayloadState.h"

#include <cstdint>

/// The result of reading one payload file to its end.
struct PayloadEvidence {
    PayloadState state = PayloadState::missing;
    /// Size of the encrypted file as found; 0 if missing.
    std::uint64_t fileByteCount = 0;
    /// Size of the original; known only if the state is matching.
    std::uint64_t plaintextByteCount = 0;
};
