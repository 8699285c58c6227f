#pragma once

#include "AmbrelLocalization/FileContents.h"

#include <filesystem>
#include <memory>
#include <mutex>
#include <utility>

/// A value decoded from a small file, kept for as long as the file stays the same and decoded again when it changes.
/// `Value` has a static function `decoded(bytes)` that gives a value for any bytes and does not throw.
/// May be used on any thread.
template<typename Value>
class FileBackedValue {
public:
    /// A file of more than `maximumSize` bytes is taken for unreadable.
    FileBackedValue(std::filesystem::path path, std::size_t maximumSize)
        : path_(std::move(path)), maximumSize_(maximumSize) {}

    /// The value of the file as it is now, or null where there is no readable regular file.
    /// One `stat` call while the file that was read is unchanged; what could not be read is tried again every time.
    std::shared_ptr<const Value> current() {
        const std::optional<FileStamp> seen = FileStamp::ofFile(path_);
        const std::lock_guard lock(mutex_);
        return refresh(seen) ? value_ : nullptr;
    }

    /// The same, but while the file cannot be read, or gives an empty value, the last one that was not empty: a file
    /// that is being replaced is cut off for a while. Null where it never could be read. `Value` has isEmpty().
    std::shared_ptr<const Value> currentOrLast() {
        const std::optional<FileStamp> seen = FileStamp::ofFile(path_);
        const std::lock_guard lock(mutex_);
        refresh(seen);
        if (!last_ || !value_->isEmpty()) {
            last_ = value_;
        }
        return last_;
    }

private:
    /// Reads the file again where it has changed. False, with the value as it was, where it cannot be read.
    bool refresh(const std::optional<FileStamp>& seen) {
        if (!seen) {
            return false;
        }
        if (isSettled_ && stamp_ == seen) {
            return true;
        }
        const std::optional<FileContents> contents = FileContents::read(path_, maximumSize_);
        // A file that could not be read may be readable the next time without being changed: the process may have had
        // no descriptor free.
        isSettled_ = contents && contents->stamp.isSettled();
        if (contents) {
            value_ = std::make_shared<const Value>(Value::decoded(contents->bytes));
            stamp_ = contents->stamp;
        }
        return contents.has_value();
    }

    const std::filesystem::path path_;
    const std::size_t maximumSize_;
    std::mutex mutex_;
    std::optional<FileStamp> stamp_;
    bool isSettled_ = false;
    std::shared_ptr<const Value> value_;
    /// What currentOrLast() gave.
    std::shared_ptr<const Value> last_;
};
