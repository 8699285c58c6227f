#include "Common/Hexadecimal.h"

#include <cstddef>

namespace {

constexpr std::string_view digits = "0123456789abcdef";

} // namespace

std::string Hexadecimal::encode(ByteView bytes) {
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

std::optional<Bytes> Hexadecimal::decode(std::string_view text) {
    if (text.size() % 2 != 0) {
        return std::nullopt;
    }
    Bytes bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t index = 0; index < text.size(); index += 2) {
        const std::size_t high = digits.find(text[index]);
        const std::size_t low = digits.find(text[index + 1]);
        if (high == std::string_view::npos || low == std::string_view::npos) {
            return std::nullopt;
        }
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    return bytes;
}
