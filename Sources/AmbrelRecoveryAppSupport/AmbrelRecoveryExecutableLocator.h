#pragma once

#include "AmbrelPlatform/ApplicationBundle.h"

#include <filesystem>

/// Locates the engine in the application.
namespace AmbrelRecoveryExecutableLocator {

/// Returns the path of the engine, "bin/ambrel-recovery" in the bundle's resources. No other path is tried. Throws
/// AmbrelRecoveryProcessError::executableUnavailable if the bundle has no resources or no executable engine.
std::filesystem::path bundledExecutable(const ApplicationBundle& bundle);

/// Whether `path`, after following symbolic links, is a file that the current user may execute. False for a directory.
bool isExecutableFile(const std::filesystem::path& path);

} // namespace AmbrelRecoveryExecutableLocator
