#pragma once

#include <cstddef>
#include <span>
#include <string>

/// Looks for copies of a secret in the memory of this process.
namespace MemoryScan {

/// In bytes.
constexpr std::size_t secretSize = 48;

/// Text in ASCII that stands nowhere in the program as it is, for a secret that a scan can find. Every call makes a
/// copy.
std::string hiddenSecret();

/// Writes the same text into `place`, with no other copy.
void writeHiddenSecret(std::span<std::byte, secretSize> place);

/// How often they stand in the writable memory of this process.
int copiesOfHiddenSecret();

} // namespace MemoryScan
