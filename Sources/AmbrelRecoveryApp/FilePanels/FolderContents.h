#pragma once

#include <unicode/locid.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

/// The contents of a folder at the time it was read.
struct FolderContents {
    struct Item {
        enum class Kind : std::uint8_t { folder, package, file };

        /// As stored by the file system: arbitrary bytes.
        std::string name;
        Kind kind = Kind::file;
        /// In bytes; 0 for anything but a file.
        std::int64_t size = 0;
        /// std::nullopt if the item's status cannot be read.
        std::optional<std::chrono::sys_time<std::chrono::milliseconds>> modified;

        friend bool operator==(const Item&, const Item&) = default;
    };

    /// By name, in the sort order of the given locale, with numbers sorted by value.
    std::vector<Item> items;
    /// Whether items can be created in the folder.
    bool isWritable = false;

    friend bool operator==(const FolderContents&, const FolderContents&) = default;

    /// Reads `folder`, following symbolic links. Returns std::nullopt if it cannot be read, if it is a package or
    /// inside one, or if `stopToken` requests a stop. Blocks as long as the file system does; any thread.
    static std::optional<FolderContents> read(const std::filesystem::path& folder, const icu::Locale& locale,
                                              const std::stop_token& stopToken);

    /// Whether this absolute path is a backup package or lies inside one, either as written or after resolving links.
    /// It need not exist. Blocks as long as the file system does; any thread.
    static bool isWithinPackage(const std::filesystem::path& path);
};
