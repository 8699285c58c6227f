#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Names of files and folders as they stand in records.
namespace FileName {

/// Whether it names exactly one entry of a folder: not empty, not "." or "..", no "/" and no NUL, at most 255 bytes.
bool isSafe(std::string_view name);

/// The name with " (number)" before its extension, for an entry whose own name is taken. A name that would grow
/// beyond 255 bytes loses the end of its stem, never half a character.
std::string numbered(std::string_view name, std::size_t number);

} // namespace FileName
