#pragma once

#include "Common/Bytes.h"

#include <cstddef>
#include <optional>

/// Reads and writes that continue after short counts and interruptions. Both throw Stopped if they are interrupted by a
/// signal that StopRequest handles.
namespace DescriptorIO {

/// Reads until `buffer` is full or the end of the file is reached. Returns the number of bytes read, or std::nullopt if
/// a read fails, with errno set.
std::optional<std::size_t> readFully(int descriptor, std::span<std::uint8_t> buffer);

/// Writes all bytes. Returns false if a write fails, with errno set.
bool writeFully(int descriptor, ByteView bytes);

} // namespace DescriptorIO
