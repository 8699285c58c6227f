#pragma once

#include <filesystem>
#include <optional>

/// The folder that holds the application's executable and everything the application ships with.
/// An immutable value; may be used on any thread.
class ApplicationBundle {
public:
    /// The bundle of the running program: the folder of its executable with symbolic links resolved, so that a link
    /// on the PATH leads to the real one. Found once per process; an unreadable executable path gives an empty one.
    static const ApplicationBundle& mainBundle();

    /// A bundle at `bundlePath`. Nothing is checked.
    explicit ApplicationBundle(std::filesystem::path bundlePath);

    /// The bundle's own folder.
    const std::filesystem::path& bundlePath() const { return bundlePath_; }

    /// The folder of the bundle's resources, or none where there is no such directory. Looked up at every call.
    std::optional<std::filesystem::path> resourcePath() const;

private:
    std::filesystem::path bundlePath_;
};
