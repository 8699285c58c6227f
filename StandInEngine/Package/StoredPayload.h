#pragma once

#include "Common/Identifier.h"

#include <cstdint>

/// An original that a package holds: its name there and its own size.
struct StoredPayload {
    Identifier identifier;
    std::uint64_t byteCount = 0;
};
