#pragma once

#include "AmbrelLocalization/FileContents.h"

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

/// A value decoded from a small file, cached until the file changes. `Value` has a static function `decoded(bytes)`,
/// which accepts any bytes and does not throw, and isEmpty(). May be used on any thread.
template<typename Value>
class FileBackedValue {
public:
    /// A file larger than `maximumSize` bytes is treated as unreadable.
    FileBackedValue(std::filesystem::path path, std::size_t maximumSize)
        : path_(std::move(path)), maximumSize_(maximumSize) {}

    /// Returns the value of the file as it is now. If the file cannot be read or decodes to an empty value, returns the
    /// last non-empty value, since a file that is being replaced is truncated for a moment. Null if the file could
    /// never be read. Costs one `stat` call while the file is unchanged; an unreadable file is tried again at each
    /// call.
    std::shared_ptr<const Value> current() {
        const std::optional<FileStamp> seen = FileStamp::ofFile(path_);
        const std::lock_guard lock(mutex_);
        if (seen && stamp_ != seen) {
            read();
        }
        return value_;
    }

private:
    void read() {
        const std::optional<FileContents> contents = FileContents::read(path_, maximumSize_);
        // A file that could not be read may become readable without being changed: the process may have been out of
        // descriptors. A file that was just changed may change again without getting a different stamp.
        const bool isFinal = contents && contents->stamp.isSettled();
        stamp_ = isFinal ? std::optional(contents->stamp) : std::nullopt;
        if (!contents) {
            return;
        }
        auto value = std::make_shared<const Value>(Value::decoded(contents->bytes));
        if (!value_ || !value->isEmpty()) {
            value_ = std::move(value);
        }
    }

    const std::filesystem::path path_;
    const std::size_t maximumSize_;
    std::mutex mutex_;
    /// The stamp of the file that was read, or std::nullopt if it must be read again.
    std::optional<FileStamp> stamp_;
    std::shared_ptr<const Value> value_;
};
