#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include <sys/stat.h>

/// What tells one state of a file from another without reading it. A value; may be used on any thread.
class FileStamp {
public:
    /// The stamp of the regular file at `path` (symbolic links followed: one `stat` call), or none where there is no
    /// such file.
    static std::optional<FileStamp> ofFile(const std::filesystem::path& path);

    /// The stamp of the open regular file `descriptor`, or none.
    static std::optional<FileStamp> ofDescriptor(int descriptor);

    /// The file's size in bytes.
    std::uint64_t size() const { return size_; }

    /// Whether the file last changed so long ago that a further change is sure to give another stamp. File systems
    /// keep times in steps of several milliseconds, so two changes within one step can look the same.
    bool isSettled() const;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;

private:
    std::uint64_t device_ = 0;
    std::uint64_t inode_ = 0;
    std::uint64_t size_ = 0;
    std::int64_t modifiedNanoseconds_ = 0;
    std::int64_t changedNanoseconds_ = 0;

    static FileStamp fromStatus(const struct stat& status);
};
