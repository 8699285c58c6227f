#pragma once

#include <cstddef>
#include <string>

/// Looks for copies of a secret in the memory of this process.
namespace MemoryScan {

/// Bytes that stand nowhere in the program as they are, for a secret that a scan can find. Every call makes a copy.
std::string hiddenSecret();

/// How often they stand in the writable memory of this process.
int copiesOfHiddenSecret();

} // namespace MemoryScan
