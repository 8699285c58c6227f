#pragma once

#include <cstdint>

/// The cost of Argon2id for one guess at a secret.
struct KeyDerivationCost {
    std::uint32_t passes = 0;
    std::uint32_t memoryKibibytes = 0;

    bool operator==(const KeyDerivationCost&) const = default;

    /// For real packages: three passes over 256 MiB.
    static constexpr KeyDerivationCost moderate() { return {3, 256 * 1024}; }
    /// For tests: provides hardly any protection.
    static constexpr KeyDerivationCost fast() { return {1, 64}; }

    /// Whether the engine accepts this cost: the contents of a package may come from anybody.
    constexpr bool isAcceptable() const {
        return passes >= 1 && passes <= 8 && memoryKibibytes >= 8 && memoryKibibytes <= 1024 * 1024;
    }
};
