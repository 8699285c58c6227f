#pragma once

#include <filesystem>
#include <optional>

/// What the system knows about items that may live in a cloud drive and be mere placeholders on this machine.
/// Called on a background thread.
class CloudItems {
public:
    enum class DownloadingStatus { notDownloaded, downloaded, current };

    struct Properties {
        /// Whether the item lives in a cloud drive; none counts as no.
        std::optional<bool> isUbiquitous;
        std::optional<DownloadingStatus> downloadingStatus;
        bool hasDownloadingError = false;
    };

    CloudItems() = default;
    CloudItems(const CloudItems&) = delete;
    CloudItems& operator=(const CloudItems&) = delete;
    virtual ~CloudItems() = default;

    /// The properties of the item right now. Throws the system's error (std::system_error) where they cannot be read.
    virtual Properties properties(const std::filesystem::path& item) = 0;

    /// Asks the system to download the item. Throws the system's error (std::system_error) where it refuses.
    virtual void startDownloading(const std::filesystem::path& item) = 0;

    /// How much of the item is here, in percent as the system reports it, or none where it does not.
    virtual std::optional<double> percentDownloaded(const std::filesystem::path& item) = 0;
};
