#pragma once

#include "Common/Identifier.h"

#include <cstdint>

/// A stored original: its name in the package and its unencrypted size.
struct StoredPayload {
    Identifier identifier;
    std::uint64_t byteCount = 0;
};
