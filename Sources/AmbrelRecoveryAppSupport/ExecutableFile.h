#pragma once

#include <filesystem>

/// Whether `path`, after following symbolic links, is a file that the current user may execute. False for a directory.
bool isExecutableFile(const std::filesystem::path& path);
