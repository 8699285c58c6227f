#pragma once

#include "Common/Bytes.h"

#include <concepts>
#include <cstddef>
#include <string_view>

/// Builds a record: integers in little-endian order, texts with a length prefix.
class ByteWriter {
public:
    template<std::integral Number>
    void number(Number value) {
        auto rest = static_cast<std::uint64_t>(value);
        for (std::size_t index = 0; index < sizeof(Number); ++index) {
            bytes_.push_back(static_cast<std::uint8_t>(rest & 255));
            rest >>= 8;
        }
    }

    void raw(ByteView bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }

    /// Writes a 16-bit length and the bytes. The text is at most 65,535 bytes long.
    void text(std::string_view text) {
        number(static_cast<std::uint16_t>(text.size()));
        raw(bytesOf(text));
    }

    const Bytes& bytes() const { return bytes_; }

private:
    Bytes bytes_;
};
