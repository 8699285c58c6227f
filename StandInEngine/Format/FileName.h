#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Names of files and folders in records.
namespace FileName {

/// Whether `name` is a valid name for a single directory entry: not empty, not "." or "..", no "/" and no NUL, at most
/// 255 bytes.
bool isSafe(std::string_view name);

/// Returns the name with " (number)" before its extension, for when the original name is taken. If the result would
/// exceed 255 bytes, the end of the stem is cut off, but never within a character.
std::string numbered(std::string_view name, std::size_t number);

} // namespace FileName
