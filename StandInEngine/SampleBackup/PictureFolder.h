#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// The files of a folder and of all folders in it.
namespace PictureFolder {

struct Picture {
    std::filesystem::path path;
    /// The names of the folders that lead to it, from the top folder (not included) down.
    std::vector<std::string> folders;
    std::string fileName;
};

/// Every regular file, ordered by its path; links are passed over. Throws SampleError when the folder cannot be read
/// or holds no file.
std::vector<Picture> scan(const std::string& path);

} // namespace PictureFolder
