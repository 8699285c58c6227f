#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// The keyed hash that names a commit or a payload file.
struct Identifier {
    std::array<std::uint8_t, 32> bytes{};

    auto operator<=>(const Identifier&) const = default;

    /// 64 lower-case hexadecimal digits.
    std::string hexadecimal() const;
    /// Parses exactly 64 lower-case hexadecimal digits; returns std::nullopt for any other text.
    static std::optional<Identifier> fromHexadecimal(std::string_view text);
};

template<>
struct std::hash<Identifier> {
    std::size_t operator()(const Identifier& identifier) const noexcept {
        std::size_t value = 0;
        std::memcpy(&value, identifier.bytes.data(), sizeof value);
        return value;
    }
};
