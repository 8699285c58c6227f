#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// A picture in memory: rows from top to bottom, three bytes (red, green, blue) per pixel, without padding.
struct Bitmap {
    Bitmap(unsigned bitmapWidth, unsigned bitmapHeight)
        : width(bitmapWidth), height(bitmapHeight), points(std::size_t{bitmapWidth} * bitmapHeight * 3) {}

    std::uint8_t* row(unsigned y) { return points.data() + std::size_t{y} * width * 3; }
    const std::uint8_t* row(unsigned y) const { return points.data() + std::size_t{y} * width * 3; }

    unsigned width;
    unsigned height;
    std::vector<std::uint8_t> points;
};
