#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Rewrites the numbers of a JSON text for a parser that supports only 64-bit numbers and recognizes integers only by
/// their spelling.
namespace PlainNumbers {

/// Returns the text with every number that is a 64-bit integer written without a decimal point and exponent, and all
/// other numbers replaced by a small fraction. Everything else is unchanged, so valid text stays valid and invalid text
/// stays invalid. Returns std::nullopt if nothing changes. Any thread; throws std::bad_alloc.
std::optional<std::string> rewritten(std::string_view json);

} // namespace PlainNumbers
