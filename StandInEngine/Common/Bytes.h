#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// Bytes that are not secret.
using Bytes = std::vector<std::uint8_t>;
/// A non-owning view of bytes.
using ByteView = std::span<const std::uint8_t>;

inline ByteView bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}
