#pragma once

#include <filesystem>
#include <optional>

/// The directory with the application's executable and everything the application ships with. An immutable value; may
/// be used on any thread.
class ApplicationBundle {
public:
    /// The bundle of the running program: the directory of its executable with symbolic links resolved, so that a link
    /// on the PATH works. Determined once per process; without a directory if it cannot be determined.
    static const ApplicationBundle& mainBundle();

    /// A bundle at `bundlePath`; an empty path makes a bundle without a directory. Nothing is checked.
    explicit ApplicationBundle(std::filesystem::path bundlePath);

    /// The bundle's directory, or an empty path.
    const std::filesystem::path& bundlePath() const { return bundlePath_; }

    /// The directory of the bundle's resources, or std::nullopt if it does not exist or the bundle has no directory.
    /// Checked at each call.
    std::optional<std::filesystem::path> resourcePath() const;

private:
    std::filesystem::path bundlePath_;
};
