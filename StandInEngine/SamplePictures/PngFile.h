#pragma once

#include "SamplePictures/Bitmap.h"

/// Pictures in the PNG format.
namespace PngFile {

/// The content of a file. Throws std::runtime_error.
std::vector<std::uint8_t> encode(const Bitmap& bitmap);

} // namespace PngFile
