#pragma once

#include "Common/UniqueDescriptor.h"

#include <filesystem>
#include <string>
#include <string_view>

/// Waits for something to appear in a folder.
class FolderWatch {
public:
    /// Sees everything that appears from here on. Throws std::system_error.
    explicit FolderWatch(const std::filesystem::path& folder);

    /// Waits for a new entry whose name ends so, and gives its name. Throws std::runtime_error when none has come
    /// after a minute, so that a broken test ends.
    std::string waitFor(std::string_view ending);

private:
    UniqueDescriptor notifications_;
};
