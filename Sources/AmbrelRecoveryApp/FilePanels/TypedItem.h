#pragma once

#include <QString>

#include <filesystem>
#include <optional>

/// What a text in the name field of a file panel stands for.
struct TypedItem {
    std::filesystem::path path;
    /// Whether it is a folder to go to, because it is written as one. Anything else is an item to take, whether it
    /// exists or not; so is a backup package and what lies in one.
    bool isFolderToEnter = false;

    /// What `text` names in `folder` or, where it begins with "~", at home; none where it names nothing. Blocks for as
    /// long as the file system does; any thread.
    static std::optional<TypedItem> find(const QString& text, const std::filesystem::path& folder);
};
