#pragma once

#include <filesystem>

/// Whether there is a file at `path`, symbolic links followed, that the current user may execute. A directory is none.
bool isExecutableFile(const std::filesystem::path& path);
