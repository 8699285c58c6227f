#pragma once

#include <cstddef>
#include <string>

/// Looks for copies of a secret in the memory of this process.
namespace MemoryScan {

/// Text in ASCII that stands nowhere in the program as it is, for a secret that a scan can find. Every call makes a
/// copy.
std::string hiddenSecret();

/// How often they stand in the writable memory of this process.
int copiesOfHiddenSecret();

} // namespace MemoryScan
