#pragma once

#include "Common/Bytes.h"

#include <cstddef>
#include <optional>

/// Reads and writes that go on after short counts and interruptions. Both throw Stopped when they were interrupted by a
/// signal that StopRequest remembers.
namespace DescriptorIO {

/// Reads until `buffer` is full or the file ends. Gives the number of bytes read, or none when a read failed
/// (errno says why).
std::optional<std::size_t> readFully(int descriptor, std::span<std::uint8_t> buffer);

/// Writes everything. False when a write failed (errno says why).
bool writeFully(int descriptor, ByteView bytes);

} // namespace DescriptorIO
