#pragma once

#include <array>
#include <cstdint>

/// The random number that identifies a package. It is part of everything that is authenticated, so nothing can be moved
/// from one package to another.
using PackageIdentifier = std::array<std::uint8_t, 16>;
