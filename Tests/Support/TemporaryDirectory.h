#pragma once

#include <filesystem>

/// A fresh directory that any user may enter and only its owner may change. It is removed with everything in it, also
/// what a test made unreadable, when this object is destroyed.
class TemporaryDirectory {
public:
    /// Throws std::system_error.
    TemporaryDirectory();

    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory();

    /// Absolute, without symbolic links.
    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};
