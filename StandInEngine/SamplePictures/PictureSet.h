#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

/// The sample pictures: landscapes of different sizes, as PNG and JPEG files, some in subfolders and some with
/// non-ASCII names.
namespace PictureSet {

struct Summary {
    std::size_t fileCount = 0;
    std::uint64_t byteCount = 0;
};

/// Draws all pictures into the folder, which is created if it does not exist, and must be empty otherwise. Throws
/// std::exception.
Summary drawInto(const std::filesystem::path& folder);

} // namespace PictureSet
