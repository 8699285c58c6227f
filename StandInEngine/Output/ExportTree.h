#pragma once

#include "Common/UniqueDescriptor.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

/// Creates folders and files inside one folder and never outside it: no link is followed and no file is replaced.
class ExportTree {
public:
    /// The names of the folders from the top down; each is safe (FileName::isSafe).
    using FolderPath = std::vector<std::string>;

    /// `root` is an open folder that must outlive the tree.
    explicit ExportTree(int root) : root_(root) {}

    /// Creates the folder and its parents if they do not exist. Throws Failure (outputNotWritten).
    void makeFolder(const FolderPath& path) const;

    /// Creates a new file in a folder of the tree and opens it for writing. If the name is taken, the file gets the
    /// lowest free number from 2. Throws Failure (outputNotWritten).
    UniqueDescriptor createFile(const FolderPath& path, const std::string& name);

private:
    UniqueDescriptor openFolder(const FolderPath& path) const;

    int root_;
    /// The number to try next for each path whose name was taken, so that a thousand equal names do not take a million
    /// attempts.
    std::unordered_map<std::string, std::size_t> nextNumbers_;
};
