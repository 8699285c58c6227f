#pragma once

#include "SamplePictures/Bitmap.h"

/// Pictures in the JPEG format.
namespace JpegFile {

/// Returns the contents of a file in high quality. libjpeg ends the program if it runs out of memory.
std::vector<std::uint8_t> encode(const Bitmap& bitmap);

} // namespace JpegFile
