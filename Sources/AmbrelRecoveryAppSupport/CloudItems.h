#pragma once

#include <filesystem>
#include <optional>

/// The system's information about items that may be in a cloud drive and exist only as placeholders on this machine.
/// Called on a background thread.
class CloudItems {
public:
    enum class DownloadingStatus { notDownloaded, downloaded, current };

    struct Properties {
        /// Whether the item is in a cloud drive; std::nullopt counts as no.
        std::optional<bool> isUbiquitous;
        std::optional<DownloadingStatus> downloadingStatus;
        bool hasDownloadingError = false;
    };

    CloudItems() = default;
    CloudItems(const CloudItems&) = delete;
    CloudItems& operator=(const CloudItems&) = delete;
    virtual ~CloudItems() = default;

    /// Returns the item's current properties. Throws std::system_error if they cannot be read.
    virtual Properties properties(const std::filesystem::path& item) = 0;

    /// Asks the system to download the item. Throws std::system_error if it refuses.
    virtual void startDownloading(const std::filesystem::path& item) = 0;

    /// The downloaded part of the item in percent, as reported by the system, or std::nullopt if it is not reported.
    virtual std::optional<double> percentDownloaded(const std::filesystem::path& item) = 0;
};
