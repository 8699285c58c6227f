#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

/// The sample pictures: landscapes of different sizes, as PNG and JPEG files, some in sub-folders and some with names
/// beyond ASCII.
namespace PictureSet {

struct Summary {
    std::size_t fileCount = 0;
    std::uint64_t byteCount = 0;
};

/// Draws all of them into the folder, which is made if it is not there and must be empty if it is. Throws
/// std::exception.
Summary drawInto(const std::filesystem::path& folder);

} // namespace PictureSet
