#pragma once

#include <array>
#include <cstdint>

/// The random number that tells a package from every other. Part of everything that is authenticated, so nothing can
/// be carried from one package into another.
using PackageIdentifier = std::array<std::uint8_t, 16>;
