#include "AmbrelRecoveryAppSupport/LocalCloudItems.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"

#include <gmock/gmock.h>

#include <optional>
#include <vector>

TEST(LocalCloudItemsTest, noItemIsInACloud) {
    LocalCloudItems items;
    for (const char* const path : {"/", "/missing/Backup.ambrel", "", "/dev/null"}) {
        EXPECT_FALSE(items.properties(path).isUbiquitous.value_or(true)) << path;
        EXPECT_FALSE(items.properties(path).hasDownloadingError) << path;
        EXPECT_EQ(items.percentDownloaded(path), std::nullopt) << path;
    }
}

TEST(LocalCloudItemsTest, everyItemIsReadyAtOnce) {
    LocalCloudItems items;
    std::vector<std::optional<double>> reports;
    AmbrelRecoveryPackagePreparation::prepareForRead(
        "/missing/Backup.ambrel", items, [&](std::optional<double> fraction) { reports.push_back(fraction); }, {});
    EXPECT_THAT(reports, testing::ElementsAre(1.0));
}
