#pragma once

#include "AmbrelLocalization/FileStamp.h"
#include "AmbrelLocalization/StringTable.h"

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

/// The table in a file, loaded at first use and cached until the file changes. May be used on any thread; nothing
/// throws.
class StringTableFile {
public:
    /// The file need not exist. One of more than ten million bytes is treated as unreadable.
    explicit StringTableFile(std::filesystem::path path) : path_(std::move(path)) {}

    /// Returns the table of the file as it is now. If the file cannot be read or yields an empty table, returns the
    /// last non-empty one, since a file that is being replaced is truncated for a moment. Null if the file could never
    /// be read. Costs one `stat` call while the file is unchanged; an unreadable file is tried again at each call.
    std::shared_ptr<const StringTable> current() const;

private:
    void read() const;

    const std::filesystem::path path_;
    /// Guards all following members.
    mutable std::mutex mutex_;
    /// The stamp of the file that was read, or std::nullopt if it must be read again.
    mutable std::optional<FileStamp> stamp_;
    mutable std::shared_ptr<const StringTable> table_;
};
