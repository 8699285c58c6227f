#pragma once

#include <cstdint>

/// The kind of a sealed record. It is authenticated, so a record cannot be passed off as another kind.
enum class RecordKind : std::uint8_t {
    commit = 1,
    head = 2,
};
