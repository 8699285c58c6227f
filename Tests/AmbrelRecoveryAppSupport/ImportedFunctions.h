#pragma once

#include <filesystem>
#include <set>
#include <string>

/// The functions and variables of C libraries that the objects in a static library import, under the names that sources
/// know them by. What only compilers, sanitizers and the C++ library put there is left out.
/// Throws std::runtime_error where the library's symbols cannot be listed.
std::set<std::string> importedFunctions(const std::filesystem::path& library);
