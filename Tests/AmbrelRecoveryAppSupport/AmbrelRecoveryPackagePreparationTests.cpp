#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"

#include "ScriptedCloudItems.h"

#include <gmock/gmock.h>

#include <chrono>
#include <limits>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Look = ScriptedCloudItems::Look;
using Error = AmbrelRecoveryPackagePreparationError;

const std::error_code denied = std::make_error_code(std::errc::permission_denied);

Look downloading(std::optional<double> percent = std::nullopt) {
    return ScriptedCloudItems::downloading(percent);
}

Look arrived(std::optional<double> percent) {
    return ScriptedCloudItems::arrived(percent);
}

Look withError(Look look) {
    look.properties.hasDownloadingError = true;
    return look;
}

class AmbrelRecoveryPackagePreparationTest : public testing::Test {
protected:
    void prepare(ScriptedCloudItems& items) {
        AmbrelRecoveryPackagePreparation::prepareForRead("/cloud/Backup.ambrel", items,
                                                         [this](std::optional<double> fraction) {
                                                             EXPECT_EQ(std::this_thread::get_id(), thread_);
                                                             reports_.push_back(fraction);
                                                         },
                                                         {});
    }

    const std::thread::id thread_ = std::this_thread::get_id();
    std::vector<std::optional<double>> reports_;
};

/// The error that preparing throws, or none.
template<typename Expected, typename Call>
std::optional<Expected> errorOf(const Call& call) {
    try {
        call();
    } catch (const Expected& error) {
        return error;
    }
    return std::nullopt;
}

} // namespace

TEST_F(AmbrelRecoveryPackagePreparationTest, aLocalPackageIsReadyAtOnce) {
    // An error does not matter for an item that is in no cloud.
    ScriptedCloudItems items({withError(ScriptedCloudItems::local())});
    prepare(items);
    EXPECT_THAT(reports_, ElementsAre(1.0));
    EXPECT_THAT(items.calls(), ElementsAre("properties"));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, aPackageThatIsAlreadyHereReportsItsFractionAndThenOne) {
    ScriptedCloudItems items({arrived(100.0), arrived(42.0)});
    prepare(items);
    EXPECT_THAT(reports_, ElementsAre(0.42, 1.0));
    EXPECT_THAT(items.calls(), ElementsAre("properties", "start", "properties", "percent"));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, passesThatNeedNoSleepTakeNoTime) {
    // A measure of time on purpose: a thousand packages that are here already take no time, where a single sleep in
    // each of them would take six minutes.
    const auto start = std::chrono::steady_clock::now();
    for (int count = 0; count < 1000; ++count) {
        ScriptedCloudItems local({ScriptedCloudItems::local()});
        prepare(local);
        ScriptedCloudItems here({arrived(100.0), arrived(100.0)});
        prepare(here);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::minutes(1));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, everyPassReportsItsFraction) {
    ScriptedCloudItems items({downloading(), downloading(0.0), downloading(42.0), downloading(), arrived(99.5)});
    const auto start = std::chrono::steady_clock::now();
    prepare(items);
    EXPECT_THAT(reports_, ElementsAre(0.0, 0.42, std::nullopt, 0.995, 1.0));
    EXPECT_THAT(items.calls(), ElementsAre("properties", "start", "properties", "percent", "properties", "percent",
                                           "properties", "percent", "properties", "percent"));
    // A lower bound cannot fail by accident: three sleeps were made, and none was shorter than it should be.
    EXPECT_GE(std::chrono::steady_clock::now() - start, 3 * std::chrono::milliseconds(350));
    // The upper bound could: what the sleeps are made of is looked at instead.
    EXPECT_EQ(AmbrelRecoveryPackagePreparation::pollingInterval, std::chrono::milliseconds(350));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, aFractionStaysBetweenZeroAndOne) {
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<double, double> cases[] = {{150.0, 1.0},   {-5.0, 0.0},     {42.0, 0.42},
                                               {0.0, 0.0},     {100.0, 1.0},    {100.1, 1.0},
                                               {-0.0001, 0.0}, {infinity, 1.0}, {-infinity, 0.0}};
    for (const auto& [percent, fraction] : cases) {
        reports_.clear();
        ScriptedCloudItems items({arrived(0.0), arrived(percent)});
        prepare(items);
        EXPECT_THAT(reports_, ElementsAre(fraction, 1.0)) << percent;
    }
}

TEST_F(AmbrelRecoveryPackagePreparationTest, aFractionThatIsNotANumberIsUnknown) {
    ScriptedCloudItems items({arrived(0.0), arrived(std::numeric_limits<double>::quiet_NaN())});
    prepare(items);
    EXPECT_THAT(reports_, ElementsAre(std::nullopt, 1.0));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, passesWithoutMetadataReportNoFraction) {
    ScriptedCloudItems items({downloading(), downloading(), downloading(), arrived(std::nullopt)});
    prepare(items);
    EXPECT_THAT(reports_, ElementsAre(std::nullopt, std::nullopt, std::nullopt, 1.0));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, aWholeFractionAloneDoesNotEndIt) {
    ScriptedCloudItems items({downloading(100.0), downloading(100.0), arrived(100.0)});
    prepare(items);
    EXPECT_THAT(reports_, ElementsAre(1.0, 1.0, 1.0));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, aPackageThatLeavesTheCloudMeanwhileIsStillAwaited) {
    ScriptedCloudItems items({downloading(), ScriptedCloudItems::local(), arrived(100.0)});
    prepare(items);
    EXPECT_THAT(reports_, ElementsAre(std::nullopt, 1.0, 1.0));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, unreadablePropertiesThrowTheSystemsErrorUnchanged) {
    ScriptedCloudItems atFirst({ScriptedCloudItems::unreadable(denied)});
    EXPECT_EQ(errorOf<std::filesystem::filesystem_error>([&] { prepare(atFirst); }).value().code(), denied);
    EXPECT_THAT(reports_, IsEmpty());
    EXPECT_THAT(atFirst.calls(), ElementsAre("properties"));

    ScriptedCloudItems later({downloading(), ScriptedCloudItems::unreadable(denied)});
    EXPECT_EQ(errorOf<std::filesystem::filesystem_error>([&] { prepare(later); }).value().code(), denied);
    EXPECT_THAT(reports_, IsEmpty());

    ScriptedCloudItems lastly({downloading(), downloading(10.0), ScriptedCloudItems::unreadable(denied)});
    EXPECT_EQ(errorOf<std::filesystem::filesystem_error>([&] { prepare(lastly); }).value().code(), denied);
    EXPECT_THAT(reports_, ElementsAre(0.1));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, aRefusedStartFailsTheDownload) {
    ScriptedCloudItems items({downloading()});
    items.refuseToStart(denied);
    EXPECT_EQ(errorOf<Error>([&] { prepare(items); }), Error::downloadFailed);
    EXPECT_THAT(reports_, IsEmpty());
    EXPECT_THAT(items.calls(), ElementsAre("properties", "start"));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, aDownloadingErrorFailsTheDownloadBeforeAnythingElseIsExamined) {
    const Look failed = withError(arrived(100.0));
    ScriptedCloudItems atOnce({downloading(), failed});
    EXPECT_EQ(errorOf<Error>([&] { prepare(atOnce); }), Error::downloadFailed);
    EXPECT_THAT(reports_, IsEmpty());
    EXPECT_THAT(atOnce.calls(), ElementsAre("properties", "start", "properties"));

    ScriptedCloudItems later({downloading(), downloading(30.0), failed});
    EXPECT_EQ(errorOf<Error>([&] { prepare(later); }), Error::downloadFailed);
    EXPECT_THAT(reports_, ElementsAre(0.3));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, anErrorAtTheFirstLookDoesNotPreventTheDownload) {
    ScriptedCloudItems items({withError(downloading()), arrived(100.0)});
    prepare(items);
    EXPECT_THAT(reports_, ElementsAre(1.0, 1.0));
}

TEST_F(AmbrelRecoveryPackagePreparationTest, worksTheSameWithoutAHandler) {
    ScriptedCloudItems items({downloading(), downloading(10.0), arrived(100.0)});
    AmbrelRecoveryPackagePreparation::prepareForRead("/cloud/Backup.ambrel", items, {}, {});
    EXPECT_THAT(items.calls(), ElementsAre("properties", "start", "properties", "percent", "properties", "percent"));
    ScriptedCloudItems local({ScriptedCloudItems::local()});
    AmbrelRecoveryPackagePreparation::prepareForRead("/cloud/Backup.ambrel", local, nullptr, {});
    EXPECT_THAT(local.calls(), ElementsAre("properties"));
}
