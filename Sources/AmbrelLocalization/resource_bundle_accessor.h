#pragma once

#include <filesystem>
#include <optional>

/// Where the module's resource bundle lies when it is not among the application's resources.
namespace ResourceBundleAccessor {

/// The name of the bundle's folder: "AmbrelCore_AmbrelLocalization.bundle".
inline constexpr const char* bundleName = "AmbrelCore_AmbrelLocalization.bundle";

/// The bundle beside the running executable, else the copy in the directory of the build. Searched at the first call
/// and then kept; ends the process where neither is there. May be called on any thread.
const std::filesystem::path& moduleBundle();

/// The first of the two folders that is there; ends the process with a message that names both where none is.
std::filesystem::path bundleAmong(const std::filesystem::path& mainPath, const std::filesystem::path& buildPath);

} // namespace ResourceBundleAccessor
