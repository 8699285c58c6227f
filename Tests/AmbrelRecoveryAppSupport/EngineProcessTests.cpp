#include "AmbrelRecoveryAppSupport/EngineProcess.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "Support/MisbehavingEngine.h"
#include "Support/OpenDescriptors.h"
#include "Support/TestFiles.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <memory>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class EngineProcessTest : public testing::Test {
protected:
    std::unique_ptr<EngineProcess> engine(const std::vector<std::string>& arguments, int input = -1) const {
        return std::make_unique<EngineProcess>(
            EngineProcess::Configuration{misbehavingEngine(), arguments, input, nullDevice_.get(), nullDevice_.get()});
    }

    static void expectNoChild() {
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
        EXPECT_EQ(errno, ECHILD);
    }

    const UniqueDescriptor nullDevice_{open("/dev/null", O_WRONLY | O_CLOEXEC)};
};

/// The descriptor that refers to a process, among those that are open.
int processDescriptor() {
    for (const auto& [descriptor, target] : openDescriptors()) {
        if (target == "anon_inode:[pidfd]" || target.starts_with("pidfd:")) {
            return descriptor;
        }
    }
    return -1;
}

/// What the system says about the process behind the descriptor: its identifier, or -1 once it has been waited for.
std::string identifierBehind(int descriptor) {
    const std::string information = TestFiles::read("/proc/self/fdinfo/" + std::to_string(descriptor));
    const std::size_t start = information.find("\nPid:\t") + std::string_view("\nPid:\t").size();
    return information.substr(start, information.find('\n', start) - start);
}

} // namespace

TEST_F(EngineProcessTest, doesNothingWithoutALaunch) {
    const auto process = engine({"wait"});
    process->requestTermination();
    process->waitForExit();
    EXPECT_TRUE(process->waitForExit(std::chrono::milliseconds(0)));
    expectNoChild();
}

TEST_F(EngineProcessTest, isRunningUntilItHasEnded) {
    const auto process = engine({"wait"});
    process->launch();
    EXPECT_FALSE(process->waitForExit(std::chrono::milliseconds(0)));
    process->requestTermination();
    process->waitForExit();
    EXPECT_TRUE(process->waitForExit(std::chrono::milliseconds(0)));
    EXPECT_EQ(process->terminationStatus(), SIGTERM);
    expectNoChild();
}

TEST_F(EngineProcessTest, destructionEndsARunningEngineAndWaitsForIt) {
    auto process = engine({"wait"});
    process->launch();
    process.reset();
    expectNoChild();
}

TEST_F(EngineProcessTest, destructionAfterTheEndLeavesNothing) {
    auto process = engine({"exit", "0"});
    process->launch();
    process->waitForExit();
    process.reset();
    expectNoChild();
    EXPECT_EQ(processDescriptor(), -1);
}

TEST_F(EngineProcessTest, aFailedLaunchCanBeFollowedByAnything) {
    EngineProcess process({"/", {}, -1, nullDevice_.get(), nullDevice_.get()});
    EXPECT_THROW(process.launch(), AmbrelRecoveryProcessError);
    process.requestTermination();
    EXPECT_TRUE(process.waitForExit(std::chrono::milliseconds(0)));
    expectNoChild();
}

TEST_F(EngineProcessTest, aRequestAfterTheEndReachesNoProcess) {
    const auto process = engine({"exit", "3"});
    process->launch();
    const int descriptor = processDescriptor();
    ASSERT_GE(descriptor, 0);
    process->waitForExit();
    // What is held refers to the process that was, and to no later one with its identifier: the system itself no longer
    // has an identifier for it, and refuses to send.
    EXPECT_EQ(identifierBehind(descriptor), "-1");
    process->requestTermination();
    EXPECT_EQ(process->terminationStatus(), 3);
}

TEST_F(EngineProcessTest, everyRunningEngineIsKilledWhateverItDoesOnRequests) {
    const auto ended = engine({"exit", "3"});
    ended->launch();
    ended->waitForExit();
    engine({"exit", "0"})->launch();
    const auto first = engine({"stop"});
    const auto second = engine({"wait"});
    const auto notLaunched = engine({"wait"});
    first->launch();
    second->launch();
    EngineProcess::killAll();
    first->waitForExit();
    second->waitForExit();
    EXPECT_EQ(first->terminationStatus(), SIGKILL);
    EXPECT_EQ(second->terminationStatus(), SIGKILL);
    EXPECT_EQ(ended->terminationStatus(), 3);
    expectNoChild();
}

TEST_F(EngineProcessTest, aLongWaitEndsWithTheEngine) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    const UniqueDescriptor readEnd(ends[0]);
    UniqueDescriptor writeEnd(ends[1]);
    const auto process = engine({"echo-input"}, readEnd.get());
    process->launch();
    EXPECT_FALSE(process->waitForExit(std::chrono::milliseconds(1)));
    writeEnd.close();
    // Nobody waits for an hour here: the test ends because the wait ends early. A signal may interrupt it.
    for (int interruptions = 0; interruptions < 1000 && !process->waitForExit(std::chrono::hours(1)); ++interruptions) {
    }
    EXPECT_EQ(process->terminationStatus(), 0);
}
