#include "AmbrelRecoveryAppSupport/LocalCloudItems.h"

CloudItems::Properties LocalCloudItems::properties(const std::filesystem::path&) {
    return {.isUbiquitous = false, .downloadingStatus = std::nullopt, .hasDownloadingError = false};
}

void LocalCloudItems::startDownloading(const std::filesystem::path&) {}

std::optional<double> LocalCloudItems::percentDownloaded(const std::filesystem::path&) {
    return std::nullopt;
}
