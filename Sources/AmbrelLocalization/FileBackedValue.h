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
        const std::optional<FileStamp> stamp = FileStamp::ofFile(path_);
        if (!stamp) {
            return nullptr;
        }
        const std::lock_guard lock(mutex_);
        if (!isSettled_ || stamp_ != stamp) {
            readAgain(*stamp);
        }
        return value_;
    }

private:
    void readAgain(const FileStamp& seen) {
        const std::optional<FileContents> contents = FileContents::read(path_, maximumSize_);
        value_ = contents ? std::make_shared<const Value>(Value::decoded(contents->bytes)) : nullptr;
        stamp_ = contents ? contents->stamp : seen;
        // A file that could not be read may be readable the next time without being changed: the process may have had
        // no descriptor free.
        isSettled_ = contents && stamp_->isSettled();
    }

    const std::filesystem::path path_;
    const std::size_t maximumSize_;
    std::mutex mutex_;
    std::optional<FileStamp> stamp_;
    bool isSettled_ = false;
    std::shared_ptr<const Value> value_;
};
