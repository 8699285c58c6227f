#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"
#include "Common/UniqueDescriptor.h"
#include "Package/PackageFile.h"

#include <cstddef>
#include <string>
#include <vector>

/// The folder of a package, opened for reading only. Below the folder itself no link is followed.
class PackageDirectory {
public:
    /// Opens the folder at `path`. Throws Failure: packageUnavailable when nothing readable is there, packageInvalid
    /// when it is not a folder.
    explicit PackageDirectory(const std::string& path);

    /// The open folder, for comparison with others.
    int descriptor() const { return root_.get(); }

    /// Opens a file at the top of the package.
    PackageFile openFile(const char* name) const;
    /// Opens the file of that name in one of the package's folders.
    PackageFile openFile(const char* folder, const Identifier& name) const;

    /// Everything in one of the package's folders whose name is an identifier, in ascending order; other names are
    /// passed over. Throws Failure: integrity when the folder is missing or holds more than `maximum` names,
    /// packageUnavailable when it cannot be read.
    std::vector<Identifier> list(const char* folder, std::size_t maximum) const;

    /// The content of an opened record file. Throws Failure: integrity when it is missing, irregular or larger than
    /// `maximum`, packageUnavailable when it cannot be read.
    static Bytes contentOf(const PackageFile& file, std::size_t maximum);

private:
    UniqueDescriptor openFolder(const char* folder) const;
    PackageFile openAt(int folder, const char* name) const;
    bool hasVanished() const;

    UniqueDescriptor root_;
};
