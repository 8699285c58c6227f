#include "AmbrelRecoveryAppSupport/CloudItems.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"

#include <gmock/gmock.h>

#include <optional>
#include <vector>

TEST(CloudItemsTest, areAllLocalWithoutACloudDrive) {
    CloudItems items;
    for (const char* const path : {"/", "/missing/Backup.ambrel", "", "/dev/null"}) {
        EXPECT_FALSE(items.properties(path).isUbiquitous) << path;
        EXPECT_FALSE(items.properties(path).hasDownloadingError) << path;
        EXPECT_EQ(items.percentDownloaded(path), std::nullopt) << path;
    }
}

TEST(CloudItemsTest, areReadyAtOnceWithoutACloudDrive) {
    CloudItems items;
    std::vector<std::optional<double>> reports;
    AmbrelRecoveryPackagePreparation::prepareForRead(
        "/missing/Backup.ambrel", items, [&](std::optional<double> fraction) { reports.push_back(fraction); }, {});
    EXPECT_THAT(reports, testing::ElementsAre(1.0));
}
