#pragma once

#include "Common/UniqueDescriptor.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

/// Makes folders and files below one folder and never leaves it: no link is followed and no file is replaced.
class ExportTree {
public:
    /// The names of the folders from the top down; each is safe (FileName::isSafe).
    using FolderPath = std::vector<std::string>;

    /// `root` is an open folder that must outlive the tree.
    explicit ExportTree(int root) : root_(root) {}

    /// Makes the folder and those around it, as far as they are not there. Throws Failure (outputNotWritten).
    void makeFolder(const FolderPath& path) const;

    /// Makes a new file in a folder of the tree, open for writing. When the name is taken, the file gets the name
    /// with the lowest number, from 2 on, that is free. Throws Failure (outputNotWritten).
    UniqueDescriptor createFile(const FolderPath& path, const std::string& name);

private:
    UniqueDescriptor openFolder(const FolderPath& path) const;

    int root_;
    /// For every path whose name was taken once: the number to try next, so that a thousand equal names do not take
    /// a million attempts.
    std::unordered_map<std::string, std::size_t> nextNumbers_;
};
