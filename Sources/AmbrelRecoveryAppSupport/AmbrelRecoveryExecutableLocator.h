#pragma once

#include "AmbrelPlatform/ApplicationBundle.h"

#include <filesystem>

/// Where the engine lies in the application.
namespace AmbrelRecoveryExecutableLocator {

/// The path of the engine, "bin/ambrel-recovery" in the bundle's resources; there is no other candidate.
/// Throws AmbrelRecoveryProcessError::executableUnavailable where the bundle has no resources or no executable engine.
std::filesystem::path bundledExecutable(const ApplicationBundle& bundle);

} // namespace AmbrelRecoveryExecutableLocator
