#pragma once

#include "Engine/CommandLine.h"
#include "Package/Credential.h"

#include <functional>
#include <string_view>

/// The engine's two real commands. Each throws Failure, Stopped and std::bad_alloc.
namespace Engine {

/// Takes a document for standard output. Throws Failure (reportNotPrinted).
using Print = std::function<void(std::string_view)>;

/// Looks through the package and prints what it found.
void inspect(const CommandLine& line, const Credential& credential, const Print& print);

/// Makes the destination folder, whole or not at all. Prints its report as the last thing that can fail before the
/// folder gets its name, so that a caller who is told of a failure never finds a folder.
void exportSnapshot(const CommandLine& line, const Credential& credential, const Print& print);

} // namespace Engine
