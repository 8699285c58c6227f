#pragma once

#include <functional>
#include <string_view>

/// The engine's self-test.
namespace SelfTest {

/// Receives the text of one line, with its line feed.
using Print = std::function<void(std::string_view)>;

/// Checks the cryptography against published test vectors, then creates, inspects and exports a package in a temporary
/// folder, which is removed afterwards. Prints one line per check. Returns true if all passed. Throws Stopped, and
/// whatever `print` throws.
bool run(const Print& print);

} // namespace SelfTest
