#pragma once

#include "AmbrelPlatform/ApplicationBundle.h"

#include <filesystem>

/// Locates the engine in the application.
namespace AmbrelRecoveryExecutableLocator {

/// Returns the path of the engine, "bin/ambrel-recovery" in the bundle's resources. No other path is tried. Throws
/// AmbrelRecoveryProcessError::executableUnavailable if the bundle has no resources or no executable engine.
std::filesystem::path bundledExecutable(const ApplicationBundle& bundle);

} // namespace AmbrelRecoveryExecutableLocator
