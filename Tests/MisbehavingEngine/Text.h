#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Writes everything to the descriptor. False where the system refuses.
bool writeAll(int descriptor, std::string_view text);

/// The bytes up to the end of the file behind the descriptor, at most `limit` at a time.
std::string readToEnd(int descriptor, std::size_t limit = 65536);

/// The text with everything but printable ASCII, and the backslash, as \xNN: one line, whatever it holds.
std::string escaped(std::string_view text);

/// The bytes as lower-case hexadecimal digits.
std::string hexadecimal(std::string_view bytes);

/// The number that the whole of `text` is, or `otherwise`.
long number(std::string_view text, long otherwise);
