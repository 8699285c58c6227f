#pragma once

#include "Engine/CommandLine.h"
#include "Package/Credential.h"

#include <functional>
#include <string_view>

/// The engine's main commands. Both throw Failure, Stopped and std::bad_alloc.
namespace Engine {

/// Receives a document for standard output. Throws Failure (reportNotPrinted).
using Print = std::function<void(std::string_view)>;

/// Inspects the package and prints the result.
void inspect(const CommandLine& line, const Credential& credential, const Print& print);

/// Creates the destination folder, completely or not at all. Printing the report is the last step that can fail before
/// the folder gets its name, so that a caller who receives a failure never finds a folder.
void exportSnapshot(const CommandLine& line, const Credential& credential, const Print& print);

} // namespace Engine
