#include "SamplePictures/PngFile.h"

#include <stdexcept>

#include <png.h>

std::vector<std::uint8_t> PngFile::encode(const Bitmap& bitmap) {
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = bitmap.width;
    image.height = bitmap.height;
    image.format = PNG_FORMAT_RGB;
    image.flags = PNG_IMAGE_FLAG_FAST;
    const auto rowStride = static_cast<png_int_32>(bitmap.width * 3);
    // Twice the size of the pixels is more than any encoding needs; the library returns the size that it used.
    std::vector<std::uint8_t> file(bitmap.points.size() * 2 + 4096);
    png_alloc_size_t size = file.size();
    if (png_image_write_to_memory(&image, file.data(), &size, 0, bitmap.points.data(), rowStride, nullptr) == 0) {
        throw std::runtime_error(image.message);
    }
    file.resize(size);
    return file;
}
