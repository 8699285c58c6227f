#pragma once

#include "Common/Bytes.h"
#include "Format/PackageIdentifier.h"

#include <cstdint>
#include <string>

/// The first, unencrypted file of a package: its kind, version and identifier.
struct PackageHeader {
    static constexpr std::uint64_t supportedVersion = 1;

    std::uint64_t version = supportedVersion;
    PackageIdentifier package{};

    /// The text of the file, which also states that a stand-in wrote it.
    std::string encode() const;

    /// Parses a header of the supported version. Throws Failure (packageInvalid) for anything else.
    static PackageHeader decode(ByteView bytes);
};
