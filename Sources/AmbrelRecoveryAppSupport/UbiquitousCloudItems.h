#pragma once

#include "AmbrelRecoveryAppSupport/CloudItems.h"

/// Items of iCloud Drive, as macOS knows them.
class UbiquitousCloudItems final : public CloudItems {
public:
    Properties properties(const std::filesystem::path& item) override;
    void startDownloading(const std::filesystem::path& item) override;
    std::optional<double> percentDownloaded(const std::filesystem::path& item) override;
};
