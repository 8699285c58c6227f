#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"
#include "Common/UniqueDescriptor.h"
#include "Package/PackageFile.h"

#include <cstddef>
#include <string>
#include <vector>

/// The folder of a package, opened for reading only. No links are followed inside it.
class PackageDirectory {
public:
    /// Opens the folder at `path`. Throws Failure: packageUnavailable if it does not exist or cannot be read,
    /// packageInvalid if it is not a folder.
    explicit PackageDirectory(const std::string& path);

    /// The open folder, for comparison with others.
    int descriptor() const { return root_.get(); }

    /// Opens a file at the top level of the package.
    PackageFile openFile(const char* name) const;
    /// Opens a file in one of the package's folders.
    PackageFile openFile(const char* folder, const Identifier& name) const;

    /// Returns all names in one of the package's folders that are identifiers, in ascending order; other names are
    /// skipped. Throws Failure: integrity if the folder is missing or holds more than `maximum` names,
    /// packageUnavailable if it cannot be read.
    std::vector<Identifier> list(const char* folder, std::size_t maximum) const;

    /// Returns the content of an opened record file. Throws Failure: integrity if it is missing, irregular or larger
    /// than `maximum`, packageUnavailable if it cannot be read.
    static Bytes contentOf(const PackageFile& file, std::size_t maximum);

private:
    UniqueDescriptor openFolder(const char* folder) const;
    PackageFile openAt(int folder, const char* name) const;
    bool hasVanished() const;

    UniqueDescriptor root_;
};
