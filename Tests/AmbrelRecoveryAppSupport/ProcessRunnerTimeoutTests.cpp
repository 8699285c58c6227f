// Engines that take longer than they may. Times are given, but never waited for.

#include "ProcessRunnerTest.h"

#include <limits>
#include <thread>

namespace {

using ProcessRunnerTimeoutTest = ConversingProcessRunnerTest;

/// More than any pipe holds.
const std::string largeCredential(1U << 20U, 'x');

} // namespace

TEST_F(ProcessRunnerTimeoutTest, aTimeoutOfZeroEndsARunningEngine) {
    for (const double timeout : {0.0, -0.0, -1.0, -1e300, -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(errorOfRun({"wait"}, std::nullopt, timeout), Error::timedOut) << timeout;
        EXPECT_EQ(errorOfRun({"wait"}, "credential", timeout), Error::timedOut) << timeout;
    }
}

TEST_F(ProcessRunnerTimeoutTest, aShortTimeoutEndsARunningEngine) {
    EXPECT_EQ(errorOfRun({"wait"}, std::nullopt, 0.25), Error::timedOut);
}

TEST_F(ProcessRunnerTimeoutTest, anEngineThatEndsInTimeIsNotTimedOut) {
    for (const double timeout : {patience, 1e300, std::numeric_limits<double>::infinity()}) {
        openGate();
        EXPECT_EQ(run({"exit", "3"}, std::nullopt, timeout).exitCode, 3) << timeout;
    }
}

TEST_F(ProcessRunnerTimeoutTest, anEngineThatNeverReadsMoreThanThePipeHoldsIsTimedOut) {
    EXPECT_EQ(errorOfRun({"wait"}, largeCredential, 0), Error::timedOut);
    EXPECT_EQ(errorOfRun({"wait"}, largeCredential, 0.25), Error::timedOut);
}
