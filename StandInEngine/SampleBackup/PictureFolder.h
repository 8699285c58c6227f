#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// The files in a folder and its subfolders.
namespace PictureFolder {

struct Picture {
    std::filesystem::path path;
    /// The names of the folders on the path to it, from the top folder (not included) down.
    std::vector<std::string> folders;
    std::string fileName;
};

/// Returns all regular files, sorted by path; links are skipped. Throws SampleError if the folder cannot be read or
/// contains no file.
std::vector<Picture> scan(const std::string& path);

} // namespace PictureFolder
