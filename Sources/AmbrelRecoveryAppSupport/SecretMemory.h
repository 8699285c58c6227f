#pragma once

#include <cstddef>
#include <span>

/// Memory pages for secrets: excluded from core dumps and, if the system allows it, from swap. One source file per
/// system implements them. May be used on any thread.
namespace SecretMemory {

/// Allocates separate zeroed pages for at least `size` bytes; `size` must not be 0. Throws std::bad_alloc.
std::byte* allocate(std::size_t size);

/// Frees the pages that allocate() returned for the same `size`. Does not wipe them.
void release(std::byte* pages, std::size_t size) noexcept;

/// Overwrites all bytes with zeros in a way that the compiler cannot optimize out.
void wipe(std::span<std::byte> bytes) noexcept;

} // namespace SecretMemory
