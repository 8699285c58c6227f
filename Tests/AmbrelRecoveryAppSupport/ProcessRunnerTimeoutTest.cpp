// Engines that take longer than they may. Times are given, but never waited for.

#include "ProcessRunnerTest.h"

#include <limits>
#include <thread>

namespace {

using ProcessRunnerTimeoutTest = ConversingProcessRunnerTest;

/// Keeps the runner at the delivery until the engine reads, and so until its handlers are in place.
const std::string largeCredential(1U << 20U, 'x');

} // namespace

TEST_F(ProcessRunnerTimeoutTest, ATimeoutOfNothingEndsARunningEngine) {
    for (const double timeout : {0.0, -0.0, -1.0, -1e300, -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(errorOfRun({"wait"}, std::nullopt, timeout), Error::timedOut) << timeout;
        EXPECT_EQ(errorOfRun({"wait"}, "credential", timeout), Error::timedOut) << timeout;
    }
}

TEST_F(ProcessRunnerTimeoutTest, AShortTimeoutEndsARunningEngine) {
    EXPECT_EQ(errorOfRun({"wait"}, std::nullopt, 0.25), Error::timedOut);
}

TEST_F(ProcessRunnerTimeoutTest, AnEngineThatEndsInTimeIsNotTimedOut) {
    for (const double timeout : {patience, 1e300, std::numeric_limits<double>::infinity()}) {
        openGate();
        EXPECT_EQ(run({"exit", "3"}, std::nullopt, timeout).exitCode, 3) << timeout;
    }
}

TEST_F(ProcessRunnerTimeoutTest, TheEngineIsAskedToEndAndAwaited) {
    EXPECT_EQ(errorOfRun({"exit-when-asked", "0"}, largeCredential, 0), Error::timedOut);
    awaitLog("asked to end");
}

TEST_F(ProcessRunnerTimeoutTest, AnEngineThatEndsLateIsAwaitedHoweverLongItTakes) {
    std::thread test([this] {
        awaitLog("asked to end");
        // The run waits for the engine, and the engine for this.
        openGate();
    });
    EXPECT_EQ(errorOfRun({"ignore-termination", "0"}, largeCredential, 0), Error::timedOut);
    test.join();
    EXPECT_EQ(awaitLog("finished"), "finished 0");
}

TEST_F(ProcessRunnerTimeoutTest, ACancellationAfterTheTimeoutIsStillATimeout) {
    std::thread test([this] {
        awaitLog("asked to end");
        runner_.cancelCurrentOperation();
        awaitLog("asked to end");
        openGate();
    });
    EXPECT_EQ(errorOfRun({"ignore-termination", "0"}, largeCredential, 0), Error::timedOut);
    test.join();
}
