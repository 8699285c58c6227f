#pragma once

#include "Format/Factor.h"
#include "Format/KeyDerivationCost.h"

#include <array>
#include <cstddef>
#include <cstdint>

/// The package key, encrypted under one of the two secrets.
struct KeySlot {
    static constexpr std::size_t packageKeyByteCount = 32;

    Factor factor = Factor::backupPassphrase;
    KeyDerivationCost cost;
    std::array<std::uint8_t, 16> salt{};
    std::array<std::uint8_t, 24> nonce{};
    std::array<std::uint8_t, packageKeyByteCount + 16> wrappedKey{};
};
