#include "AmbrelRecoveryAppSupport/SecretStackWiper.h"

#include "AmbrelRecoveryAppSupport/SecretMemory.h"

#include <array>
#include <cstddef>

namespace {

constexpr std::size_t reach = std::size_t{128} * 1024;

/// Its frame overlaps the frames of the functions that were called before it.
[[gnu::noinline]] void wipeBelow() {
    std::array<std::byte, reach> unused;
    SecretMemory::wipe(unused);
}

} // namespace

SecretStackWiper::~SecretStackWiper() {
    wipeBelow();
}
