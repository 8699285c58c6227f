#pragma once

#include <unicode/locid.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

/// What a folder held when it was read.
struct FolderContents {
    struct Item {
        enum class Kind : std::uint8_t { folder, package, file };

        /// As the file system has it: any bytes.
        std::string name;
        Kind kind = Kind::file;
        /// In bytes; 0 for what is not a file.
        std::int64_t size = 0;
        /// None where the item cannot be asked.
        std::optional<std::chrono::sys_time<std::chrono::milliseconds>> modified;

        bool isHidden() const { return name.starts_with('.'); }

        friend bool operator==(const Item&, const Item&) = default;
    };

    /// Folders first, then by name as the language of the reading sorts them, with numbers by their value.
    std::vector<Item> items;
    /// Whether items can be made in the folder.
    bool isWritable = false;

    friend bool operator==(const FolderContents&, const FolderContents&) = default;

    /// Reads `folder`, following symbolic links. None where it cannot be read, where it is or lies in a package, and
    /// where `stopToken` asks to stop. Blocks for as long as the file system does; any thread.
    static std::optional<FolderContents> read(const std::filesystem::path& folder, const icu::Locale& locale,
                                              const std::stop_token& stopToken);

    /// Whether this absolute path is that of a backup package or lies in one, as it is written or where its links lead.
    /// It need not exist. Blocks for as long as the file system does; any thread.
    static bool isWithinPackage(const std::filesystem::path& path);
};
