#include "SamplePictures/JpegFile.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

#include <jpeglib.h>

namespace {

struct Freer {
    void operator()(unsigned char* memory) const { std::free(memory); }
};

} // namespace

std::vector<std::uint8_t> JpegFile::encode(const Bitmap& bitmap) {
    jpeg_compress_struct compressor = {};
    jpeg_error_mgr errors = {};
    compressor.err = jpeg_std_error(&errors);
    jpeg_CreateCompress(&compressor, JPEG_LIB_VERSION, sizeof compressor);
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&compressor, &memory, &size);
    compressor.image_width = bitmap.width;
    compressor.image_height = bitmap.height;
    compressor.input_components = 3;
    compressor.in_color_space = JCS_RGB;
    jpeg_set_defaults(&compressor);
    jpeg_set_quality(&compressor, 95, TRUE);
    jpeg_start_compress(&compressor, TRUE);
    while (compressor.next_scanline < compressor.image_height) {
        // The library takes non-const rows but does not change them.
        JSAMPROW row = const_cast<std::uint8_t*>(bitmap.row(compressor.next_scanline));
        jpeg_write_scanlines(&compressor, &row, 1);
    }
    jpeg_finish_compress(&compressor);
    jpeg_destroy_compress(&compressor);
    const std::unique_ptr<unsigned char, Freer> owner(memory);
    return {memory, memory + size};
}
