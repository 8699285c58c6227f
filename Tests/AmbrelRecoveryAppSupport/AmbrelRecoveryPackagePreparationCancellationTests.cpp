#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"
#include "ScriptedCloudItems.h"

#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <future>
#include <stop_token>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::vector<ScriptedCloudItems::Look> downloadingForLong(100, ScriptedCloudItems::downloading(42.0));

class AmbrelRecoveryPackagePreparationCancellationTest : public testing::Test {
protected:
    /// `onReport` is called after every report, on the preparing thread.
    void prepare(
        ScriptedCloudItems& items, const std::function<void()>& onReport = [] {}) {
        AmbrelRecoveryPackagePreparation::prepareForRead(
            "/cloud/Backup.ambrel", items,
            [&](std::optional<double> fraction) {
                reports_.push_back(fraction);
                onReport();
            },
            source_.get_token());
    }

    std::stop_source source_;
    std::vector<std::optional<double>> reports_;
};

} // namespace

TEST_F(AmbrelRecoveryPackagePreparationCancellationTest, beforeTheFirstPassThrowsAfterTheDownloadWasStarted) {
    ScriptedCloudItems items(downloadingForLong);
    source_.request_stop();
    EXPECT_THROW(prepare(items), CancellationError);
    EXPECT_THAT(items.calls(), ElementsAre("properties", "start"));
    EXPECT_THAT(reports_, IsEmpty());
}

TEST_F(AmbrelRecoveryPackagePreparationCancellationTest, ofALocalPackageComesTooLate) {
    ScriptedCloudItems items({ScriptedCloudItems::local()});
    source_.request_stop();
    prepare(items);
    EXPECT_THAT(reports_, ElementsAre(1.0));
}

TEST_F(AmbrelRecoveryPackagePreparationCancellationTest, ofACompletePassComesTooLate) {
    ScriptedCloudItems items({ScriptedCloudItems::downloading(), ScriptedCloudItems::arrived(42.0)});
    prepare(items, [this] { source_.request_stop(); });
    EXPECT_THAT(reports_, ElementsAre(0.42, 1.0));
}

TEST_F(AmbrelRecoveryPackagePreparationCancellationTest, duringAPassEndsBeforeTheNext) {
    ScriptedCloudItems items(downloadingForLong);
    EXPECT_THROW(prepare(items, [this] { source_.request_stop(); }), CancellationError);
    EXPECT_THAT(reports_, ElementsAre(0.42));
    EXPECT_THAT(items.calls(), ElementsAre("properties", "start", "properties", "percent"));
}

TEST_F(AmbrelRecoveryPackagePreparationCancellationTest, fromAnotherThreadEndsTheSleepWithoutAFurtherReport) {
    // A measure of time on purpose: each of forty preparations is cancelled right after its first report. Were a sleep
    // not ended by it, they would take fourteen seconds; they take a few milliseconds.
    constexpr int preparations = 40;
    const auto start = std::chrono::steady_clock::now();
    for (int count = 0; count < preparations; ++count) {
        ScriptedCloudItems items(downloadingForLong);
        std::stop_source source;
        std::promise<void> reported;
        std::jthread cancelling([&] {
            reported.get_future().wait();
            // Most often the other thread sleeps by then, and now and then it does not yet.
            std::this_thread::yield();
            source.request_stop();
        });
        int reports = 0;
        EXPECT_THROW(AmbrelRecoveryPackagePreparation::prepareForRead(
                         "/cloud/Backup.ambrel", items,
                         [&](std::optional<double>) {
                             ++reports;
                             reported.set_value();
                         },
                         source.get_token()),
                     CancellationError);
        EXPECT_EQ(reports, 1);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, preparations * std::chrono::milliseconds(350) / 2);
}
