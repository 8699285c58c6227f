#pragma once

#include <filesystem>
#include <map>
#include <string>

/// Everything that is in a folder, for a comparison of before and after.
namespace FolderDigest {

/// For every entry at every depth, and for the folder itself: kind, permissions, owner, identity, times of modification
/// and of status change, and content or link target. Files beyond one mebibyte are taken by their size and times.
std::map<std::string, std::string> of(const std::filesystem::path& folder);

/// The content of every file, by its path from the folder on.
std::map<std::string, std::string> contents(const std::filesystem::path& folder);

} // namespace FolderDigest
