#pragma once

#include "Common/Bytes.h"

#include <optional>
#include <string>
#include <string_view>

/// Bytes as lower-case hexadecimal digits.
namespace Hexadecimal {

std::string encode(ByteView bytes);

/// Returns std::nullopt for an odd number of digits or for characters other than 0-9 and a-f.
std::optional<Bytes> decode(std::string_view text);

} // namespace Hexadecimal
