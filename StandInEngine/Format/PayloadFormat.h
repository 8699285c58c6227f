#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"
#include "Format/PackageIdentifier.h"

#include <cstddef>
#include <cstdint>

/// The format of a payload file: a stream header, then the original in chunks. Each chunk is encrypted and
/// authenticated together with its position, the package and the payload's name; the last chunk is marked as such.
namespace PayloadFormat {

inline constexpr std::size_t streamHeaderByteCount = 24;
inline constexpr std::size_t chunkPlaintextByteCount = 65'536;
inline constexpr std::size_t chunkOverheadByteCount = 17;
inline constexpr std::size_t chunkByteCount = chunkPlaintextByteCount + chunkOverheadByteCount;

/// The data that every chunk authenticates in addition to its content.
Bytes associatedData(const PackageIdentifier& package, const Identifier& payload);

} // namespace PayloadFormat
