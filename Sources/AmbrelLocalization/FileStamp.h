#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include <sys/stat.h>

/// Identifies one state of a file without reading its contents. A value; may be used on any thread.
class FileStamp {
public:
    /// Returns the stamp of the regular file at `path`, or std::nullopt if there is none. Follows symbolic links; costs
    /// one `stat` call.
    static std::optional<FileStamp> ofFile(const std::filesystem::path& path);

    /// Returns the stamp of the open regular file `descriptor`, or std::nullopt.
    static std::optional<FileStamp> ofDescriptor(int descriptor);

    /// The file's size in bytes.
    std::uint64_t size() const { return size_; }

    /// Whether the last change was long enough ago that any further change will produce a different stamp. File systems
    /// record times in steps of several milliseconds, so two changes within one step can look the same.
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
