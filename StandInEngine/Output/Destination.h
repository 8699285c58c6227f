#pragma once

#include "Common/UniqueDescriptor.h"

#include <string>

/// The place of a folder that is to be made: an existing folder around it, and a name that is free there.
class Destination {
public:
    /// Looks at the place. Throws Failure: destinationExists when anything has that name, also a dangling link;
    /// destinationUnavailable when the folder around it is missing or cannot be used.
    explicit Destination(const std::string& path);

    /// Throws Failure (destinationUnavailable) when the place lies inside the folder open as `folder`, by whatever
    /// links the path came there.
    void requireOutside(int folder) const;

    int parent() const { return parent_.get(); }
    const std::string& name() const { return name_; }

private:
    UniqueDescriptor parent_;
    std::string name_;
};
