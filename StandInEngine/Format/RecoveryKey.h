#pragma once

#include "Common/SecretBytes.h"

#include <optional>

/// The printable recovery key: 128 random bits and a 22-bit checksum, in six groups of five characters. The characters
/// are digits and letters, without I, L, O and U.
namespace RecoveryKey {

/// Generates a 16-byte key.
SecretBytes generate();

/// 35 ASCII characters, for example "7Q2KM-…".
SecretBytes print(const SecretBytes& key);

/// Parses what the user typed: upper or lower case, I and L as 1, O as 0, any spaces and dashes (including typographic
/// ones, in UTF-8). Returns std::nullopt if there are other characters, or if the length or the checksum is wrong.
std::optional<SecretBytes> parse(const SecretBytes& typed);

} // namespace RecoveryKey
