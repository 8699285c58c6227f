#pragma once

#include <filesystem>
#include <optional>

/// The folder that holds the application's executable and everything the application ships with.
/// An immutable value; may be used on any thread.
class ApplicationBundle {
public:
    /// The bundle of the running program: the folder of its executable with symbolic links resolved, so that a link
    /// on the PATH leads to the real one. Found once per process; where it cannot be found, one without a folder.
    static const ApplicationBundle& mainBundle();

    /// A bundle at `bundlePath`, or without a folder where that is empty. Nothing is checked.
    explicit ApplicationBundle(std::filesystem::path bundlePath);

    /// The bundle's own folder, or an empty path.
    const std::filesystem::path& bundlePath() const { return bundlePath_; }

    /// The folder of the bundle's resources, or none where there is no such directory, or no folder. Looked up at every
    /// call.
    std::optional<std::filesystem::path> resourcePath() const;

private:
    std::filesystem::path bundlePath_;
};
