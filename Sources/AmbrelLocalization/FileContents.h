#pragma once

#include "AmbrelLocalization/FileStamp.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

/// The bytes of a regular file together with the stamp of the state they were read from.
struct FileContents {
    FileStamp stamp;
    std::string bytes;

    /// Reads the file at `path`, or none where it is no regular file, cannot be read, or holds more than
    /// `maximumSize` bytes. Never waits for another process, so a pipe in the file's place does no harm.
    static std::optional<FileContents> read(const std::filesystem::path& path, std::size_t maximumSize);
};
