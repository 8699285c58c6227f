#include "AmbrelLocalization/resource_bundle_accessor.h"

#include "AmbrelPlatform/ApplicationBundle.h"

#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace ResourceBundleAccessor {

const std::filesystem::path& moduleBundle() {
    // With an empty path, the bundle would be looked up in the working directory.
    const std::filesystem::path& folder = ApplicationBundle::mainBundle().bundlePath();
    static const std::filesystem::path bundle =
        bundleAmong(folder.empty() ? folder : folder / bundleName, AMBREL_LOCALIZATION_BUILD_BUNDLE_PATH);
    return bundle;
}

std::filesystem::path bundleAmong(const std::filesystem::path& mainPath, const std::filesystem::path& buildPath) {
    std::error_code error;
    if (std::filesystem::is_directory(mainPath, error)) {
        return mainPath;
    }
    if (std::filesystem::is_directory(buildPath, error)) {
        return buildPath;
    }
    std::fprintf(stderr, "could not load resource bundle: from %s or %s\n", mainPath.c_str(), buildPath.c_str());
    std::abort();
}

} // namespace ResourceBundleAccessor
