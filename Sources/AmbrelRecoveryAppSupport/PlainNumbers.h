#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The numbers of a JSON text, spelled for a parser that takes only what 64 bits hold, and for an integer only what is
/// written like one.
namespace PlainNumbers {

/// The text with every integer that 64 bits hold written without a point and an exponent, and with a small fraction in
/// the place of every other number. Everything else stays, so that no valid text becomes invalid, nor the other way
/// round. None where that changes nothing. Any thread; throws std::bad_alloc.
std::optional<std::string> rewritten(std::string_view json);

} // namespace PlainNumbers
