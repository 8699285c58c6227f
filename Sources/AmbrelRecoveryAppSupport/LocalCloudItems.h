#pragma once

#include "AmbrelRecoveryAppSupport/CloudItems.h"

/// For systems without a cloud drive: every item is local, even a missing one, which the engine reports.
class LocalCloudItems final : public CloudItems {
public:
    Properties properties(const std::filesystem::path& item) override;
    void startDownloading(const std::filesystem::path& item) override;
    std::optional<double> percentDownloaded(const std::filesystem::path& item) override;
};
