#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// Bytes that are not secret.
using Bytes = std::vector<std::uint8_t>;
/// A view of bytes that somebody else owns.
using ByteView = std::span<const std::uint8_t>;

/// The bytes of a text.
inline ByteView bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}
