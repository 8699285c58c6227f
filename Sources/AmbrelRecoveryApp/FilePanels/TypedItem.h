#pragma once

#include <QString>

#include <filesystem>
#include <optional>

/// The item that the text in a panel's name field refers to.
struct TypedItem {
    std::filesystem::path path;
    /// Whether this is a folder to enter: it exists, and the text ends with "/", "/." or "/..". Anything else is an
    /// item to choose, whether or not it exists, including a backup package and anything inside one.
    bool isFolderToEnter = false;

    /// Resolves `text` relative to `folder` or, if it starts with "~", to the home folder. Returns std::nullopt if it
    /// names nothing. Blocks as long as the file system does; any thread.
    static std::optional<TypedItem> find(const QString& text, const std::filesystem::path& folder);
};
