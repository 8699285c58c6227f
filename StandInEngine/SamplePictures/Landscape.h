#pragma once

#include "SamplePictures/Bitmap.h"

#include <cstdint>

/// Draws landscapes: a sky with a sun, three ranges of hills, and camera grain.
namespace Landscape {

/// The same `seed` and size always produce the same picture.
Bitmap draw(unsigned width, unsigned height, std::uint32_t seed);

} // namespace Landscape
