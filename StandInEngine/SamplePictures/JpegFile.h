#pragma once

#include "SamplePictures/Bitmap.h"

/// Pictures in the JPEG format.
namespace JpegFile {

/// The content of a file, in high quality. The library ends the program when it has no memory.
std::vector<std::uint8_t> encode(const Bitmap& bitmap);

} // namespace JpegFile
