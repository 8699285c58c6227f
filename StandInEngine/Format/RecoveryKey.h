#pragma once

#include "Common/SecretBytes.h"

#include <optional>

/// The printable recovery key: 128 random bits and a checksum of 22 bits, as six groups of five characters out of
/// the digits and the letters without I, L, O and U.
namespace RecoveryKey {

/// A fresh key of 16 bytes.
SecretBytes generate();

/// 35 ASCII characters, for example "7Q2KM-…".
SecretBytes print(const SecretBytes& key);

/// Reads what somebody typed: upper or lower case, I and L for 1, O for 0, any spaces and dashes (also typographic
/// ones, UTF-8). None when anything else is in it, when its length is wrong or when the checksum does not fit.
std::optional<SecretBytes> parse(const SecretBytes& typed);

} // namespace RecoveryKey
