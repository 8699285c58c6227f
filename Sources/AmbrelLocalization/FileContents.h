#pragma once

#include "AmbrelLocalization/FileStamp.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

/// The bytes of a regular file, with the stamp of the state they were read from.
struct FileContents {
    FileStamp stamp;
    std::string bytes;

    /// Reads the file at `path`. Returns std::nullopt if it is not a regular file, cannot be read, or is larger than
    /// `maximumSize` bytes. Never blocks on another process, even if `path` is a pipe.
    static std::optional<FileContents> read(const std::filesystem::path& path, std::size_t maximumSize);
};
