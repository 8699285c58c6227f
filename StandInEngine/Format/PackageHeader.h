#pragma once

#include "Common/Bytes.h"
#include "Format/PackageIdentifier.h"

#include <cstdint>
#include <string>

/// The plain first file of a package: what it is, which version, and its identifier.
struct PackageHeader {
    static constexpr std::uint64_t supportedVersion = 1;

    std::uint64_t version = supportedVersion;
    PackageIdentifier package{};

    /// The text of the file, which also says that a stand-in wrote it.
    std::string encode() const;

    /// Reads a header of the supported version. Throws Failure (packageInvalid) for anything else.
    static PackageHeader decode(ByteView bytes);
};
