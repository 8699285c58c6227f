#include "AmbrelPlatform/ApplicationBundle.h"

#include <system_error>
#include <utility>

ApplicationBundle::ApplicationBundle(std::filesystem::path bundlePath) : bundlePath_(std::move(bundlePath)) {}

std::optional<std::filesystem::path> ApplicationBundle::resourcePath() const {
    const std::filesystem::path resources = bundlePath_ / "Resources";
    std::error_code error;
    // With an empty path, this would be the working directory, where anybody may have put something.
    if (bundlePath_.empty() || !std::filesystem::is_directory(resources, error)) {
        return std::nullopt;
    }
    return resources;
}
