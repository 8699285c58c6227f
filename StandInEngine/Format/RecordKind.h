#pragma once

#include <cstdint>

/// What a sealed record is. Part of what is authenticated, so a record never passes for one of another kind.
enum class RecordKind : std::uint8_t {
    commit = 1,
    head = 2,
};
