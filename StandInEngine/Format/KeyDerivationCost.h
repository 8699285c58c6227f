#pragma once

#include <cstdint>

/// How much work Argon2id does for one guess at a secret.
struct KeyDerivationCost {
    std::uint32_t passes = 0;
    std::uint32_t memoryKibibytes = 0;

    bool operator==(const KeyDerivationCost&) const = default;

    /// For packages in use: three passes over 256 MiB.
    static constexpr KeyDerivationCost moderate() { return {3, 256 * 1024}; }
    /// For tests: hardly any protection.
    static constexpr KeyDerivationCost fast() { return {1, 64}; }

    /// Whether the engine agrees to spend it: what stands in a package may come from anybody.
    constexpr bool isAcceptable() const {
        return passes >= 1 && passes <= 8 && memoryKibibytes >= 8 && memoryKibibytes <= 1024 * 1024;
    }
};
