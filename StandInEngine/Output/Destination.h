#pragma once

#include "Common/UniqueDescriptor.h"

#include <string>

/// The location of a folder to be created: an existing parent folder, and a free name in it.
class Destination {
public:
    /// Checks the location. Throws Failure: destinationExists if anything has that name, even a dangling link;
    /// destinationUnavailable if the parent folder is missing or cannot be used.
    explicit Destination(const std::string& path);

    /// Throws Failure (destinationUnavailable) if the location is inside the folder open as `folder`, even through
    /// links.
    void requireOutside(int folder) const;

    int parent() const { return parent_.get(); }
    const std::string& name() const { return name_; }

private:
    UniqueDescriptor parent_;
    std::string name_;
};
