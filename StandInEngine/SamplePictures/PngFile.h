#pragma once

#include "SamplePictures/Bitmap.h"

/// Pictures in the PNG format.
namespace PngFile {

/// Returns the contents of a file. Throws std::runtime_error.
std::vector<std::uint8_t> encode(const Bitmap& bitmap);

} // namespace PngFile
