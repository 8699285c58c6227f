#pragma once

#include <filesystem>
#include <optional>

/// The system's information about items that may be in a cloud drive and exist only as placeholders on this machine.
/// This class knows no cloud drive: to it, every item is local, even a missing one, which the engine reports. One for a
/// system with a cloud drive overrides all functions. Called on a background thread.
class CloudItems {
public:
    struct Properties {
        /// Whether the item is in a cloud drive.
        bool isUbiquitous = false;
        /// Whether the item is on this machine, in its current or in an earlier version.
        bool isDownloaded = false;
        bool hasDownloadingError = false;
    };

    CloudItems() = default;
    CloudItems(const CloudItems&) = delete;
    CloudItems& operator=(const CloudItems&) = delete;
    virtual ~CloudItems() = default;

    /// Returns the item's current properties. Throws std::system_error if they cannot be read.
    virtual Properties properties(const std::filesystem::path&) { return {}; }

    /// Asks the system to download the item. Throws std::system_error if it refuses.
    virtual void startDownloading(const std::filesystem::path&) {}

    /// The downloaded part of the item in percent, as reported by the system, or std::nullopt if it is not reported.
    virtual std::optional<double> percentDownloaded(const std::filesystem::path&) { return std::nullopt; }
};
