#pragma once

#include <functional>
#include <string_view>

/// The engine's test of itself.
namespace SelfTest {

/// Takes the text of one line, with its line feed.
using Print = std::function<void(std::string_view)>;

/// Checks the cryptography against published test vectors, then makes, inspects and exports a package in a temporary
/// folder that is removed afterwards. Prints one line for each check. True when all passed. Throws Stopped, and what
/// `print` throws.
bool run(const Print& print);

} // namespace SelfTest
