#pragma once

#include <cstddef>
#include <span>

/// Memory pages for secrets: kept out of the swap space where the system allows it, and out of core dumps.
/// One source file per system implements them. May be used on any thread.
namespace SecretMemory {

/// Zeroed pages of their own with room for at least `size` bytes, `size` not 0. Throws std::bad_alloc.
std::byte* allocate(std::size_t size);

/// Gives back what allocate() returned for the same `size`. Does not wipe.
void release(std::byte* pages, std::size_t size) noexcept;

/// Overwrites every byte with zero, in a way that the compiler cannot leave out.
void wipe(std::span<std::byte> bytes) noexcept;

} // namespace SecretMemory
