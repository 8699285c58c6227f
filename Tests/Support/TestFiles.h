#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include <sys/types.h>

/// Files for tests. Every function throws std::exception where the system refuses.
namespace TestFiles {

/// Makes or replaces the file, with exactly these permissions.
void write(const std::filesystem::path& path, std::string_view contents, mode_t permissions = 0644);

/// Every byte of the file.
std::string read(const std::filesystem::path& path);

/// The names in the directory.
std::set<std::string> names(const std::filesystem::path& directory);

} // namespace TestFiles
