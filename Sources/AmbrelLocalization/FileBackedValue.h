#pragma once

#include "AmbrelLocalization/FileContents.h"

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

/// A value decoded from a small file, kept for as long as the file stays the same and decoded again when it changes.
/// `Value` has a static function `decoded(bytes)` that gives a value for any bytes and does not throw, and isEmpty().
/// May be used on any thread.
template<typename Value>
class FileBackedValue {
public:
    /// A file of more than `maximumSize` bytes is taken for unreadable.
    FileBackedValue(std::filesystem::path path, std::size_t maximumSize)
        : path_(std::move(path)), maximumSize_(maximumSize) {}

    /// The value of the file as it is now. While the file cannot be read, or gives an empty value, the last one that
    /// was not empty: a file that is being replaced is cut off for a while. Null where it never could be read. One
    /// `stat` call while the file that was read is unchanged; what could not be read is tried again every time.
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
        // A file that could not be read may be readable the next time without being changed: the process may have had
        // no descriptor free. One that has just been changed may be changed again without another stamp.
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
    /// Of the file that was read; none where it is to be read again.
    std::optional<FileStamp> stamp_;
    std::shared_ptr<const Value> value_;
};
