#pragma once

#include "Common/Bytes.h"
#include "Common/Identifier.h"
#include "Format/PackageIdentifier.h"

#include <cstddef>
#include <cstdint>

/// The shape of a payload file: a stream header, then the original in chunks, each encrypted and authenticated
/// together with its place, the package and the payload's name; the last chunk is marked as the last.
namespace PayloadFormat {

inline constexpr std::size_t streamHeaderByteCount = 24;
inline constexpr std::size_t chunkPlaintextByteCount = 65'536;
inline constexpr std::size_t chunkOverheadByteCount = 17;
inline constexpr std::size_t chunkByteCount = chunkPlaintextByteCount + chunkOverheadByteCount;

/// What every chunk authenticates besides its content.
Bytes associatedData(const PackageIdentifier& package, const Identifier& payload);

} // namespace PayloadFormat
