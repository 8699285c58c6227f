#pragma once

#include <filesystem>

/// Locates the module's resource bundle if it is not among the application's resources.
namespace ResourceBundleAccessor {

/// The name of the bundle's directory.
inline constexpr const char* bundleName = "AmbrelCore_AmbrelLocalization.bundle";

/// The bundle in the directory of the running executable, else the copy in the build directory. Located at the first
/// call and cached; ends the process if neither exists. May be called on any thread.
const std::filesystem::path& moduleBundle();

/// Returns the first of the two directories that exists. If neither does, ends the process with a message that names
/// both.
std::filesystem::path bundleAmong(const std::filesystem::path& mainPath, const std::filesystem::path& buildPath);

} // namespace ResourceBundleAccessor
