#pragma once

#include <QString>

#include <filesystem>

/// The item that the text in a panel's name field refers to.
struct TypedItem {
    std::filesystem::path path;
    /// Whether this is a folder to enter: it exists, and the text ends with "/", "/." or "/..". Anything else is an
    /// item to choose, whether or not it exists, including a backup package and anything inside one.
    bool isFolderToEnter = false;

    /// Resolves `text` relative to `folder` or, if it starts with "~", to the home folder. Blocks as long as the file
    /// system does; any thread.
    static TypedItem find(const QString& text, const std::filesystem::path& folder);

    /// Returns the path of find() as it was typed, with separators at its end. Blocks and threads as find().
    static std::filesystem::path pathOf(const QString& text, const std::filesystem::path& folder);
};
