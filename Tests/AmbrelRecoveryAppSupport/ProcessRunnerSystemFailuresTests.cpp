// System calls of a run that fail or are interrupted, one by one; FaultSweepTest goes through all of them.

#include "AmbrelPlatform/ApplicationBundle.h"
#include "ProcessRunnerTest.h"
#include "Support/ChildProcess.h"
#include "Support/OpenDescriptors.h"
#include "Support/TestFiles.h"
#include "SystemCallFaults.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <new>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Error = AmbrelRecoveryProcessError;

class ProcessRunnerSystemFailuresTest : public ProcessRunnerTest {
protected:
    void SetUp() override {
        ProcessRunnerTest::SetUp();
        SystemCallFaults::reset();
    }

    void TearDown() override {
        SystemCallFaults::pause();
        ProcessRunnerTest::TearDown();
    }
};

} // namespace

TEST_F(ProcessRunnerSystemFailuresTest, withoutMemoryForTheCredentialNoEngineIsStarted) {
    SystemCallFaults::fail("mmap", 1, ENOMEM);
    EXPECT_THROW(run({"echo-input"}, "credential"), std::bad_alloc);
    EXPECT_EQ(SystemCallFaults::calls("clone"), 0);
}

TEST_F(ProcessRunnerSystemFailuresTest, aFailedDeliveryEndsAnEngineThatWouldWaitForever) {
    SystemCallFaults::fail("write", 1, EIO);
    EXPECT_EQ(errorOfRun({"wait"}, "credential"), Error::launchFailed);
    EXPECT_EQ(SystemCallFaults::calls("pidfd_send_signal"), 1);
}

TEST_F(ProcessRunnerSystemFailuresTest, interruptedCallsAreRepeated) {
    for (const char* const call :
         {"open", "openat", "mkdir", "chmod", "fchmod", "flock", "write", "pread", "poll", "waitid", "close"}) {
        SCOPED_TRACE(call);
        for (int occurrence = 1; occurrence <= 3; ++occurrence) {
            SystemCallFaults::reset();
            SystemCallFaults::fail(call, occurrence, EINTR);
            const Result result = run({"echo-input"}, "credential");
            EXPECT_EQ(result.exitCode, 0);
            EXPECT_EQ(result.standardOutput, echoOf("credential\n"));
        }
    }
    SystemCallFaults::reset();
    for (int occurrence = 1; occurrence <= 5; ++occurrence) {
        SystemCallFaults::fail("waitid", occurrence, EINTR);
    }
    EXPECT_EQ(errorOfRun({"wait"}, std::nullopt, 0), Error::timedOut);
}

TEST_F(ProcessRunnerSystemFailuresTest, partialTransfersAreCompleted) {
    SystemCallFaults::moveSingleBytes();
    const std::string credential = "a credential that goes byte by byte";
    EXPECT_EQ(run({"echo-input"}, credential).standardOutput, echoOf(credential + "\n"));
    EXPECT_GT(SystemCallFaults::calls("write"), 30);
    EXPECT_GT(SystemCallFaults::calls("pread"), 60);
}

TEST_F(ProcessRunnerSystemFailuresTest, aLostStatusNeverLooksLikeASuccess) {
    // Somebody else has waited for the child process: its status is lost. The fault leaves the real one to be reaped.
    SystemCallFaults::fail("waitid", 1, ECHILD);
    EXPECT_NE(run({"exit", "0"}).exitCode, 0);
    siginfo_t information{};
    EXPECT_EQ(waitid(P_ALL, 0, &information, WEXITED), 0);
}

TEST_F(ProcessRunnerSystemFailuresTest, toMoveADescriptorAboveTheStandardStreamsFailTheRun) {
    const std::string outcome = ChildProcess::outcome([this] {
        close(STDIN_FILENO);
        std::string findings;
        std::set<std::string_view> outcomes;
        for (int occurrence = 1; !outcomes.contains("none"); ++occurrence) {
            SystemCallFaults::reset();
            SystemCallFaults::fail("fcntl", occurrence, EMFILE);
            const std::optional<Error> error = errorOfRun({"echo-input"}, "credential");
            SystemCallFaults::pause();
            outcomes.insert(error ? nameOf(*error) : "none");
            findings += privateDirectories().empty() ? "" : "a private directory is left\n";
        }
        for (const std::string_view expected : {"temporaryOutputUnavailable", "launchFailed"}) {
            findings += outcomes.contains(expected) ? "" : "never " + std::string(expected);
        }
        return findings;
    });
    EXPECT_EQ(outcome, "");
}

TEST_F(ProcessRunnerSystemFailuresTest, noOtherProgramThatIsStartedMeanwhileInheritsADescriptor) {
    // Whatever the application starts in the middle of a run gets nothing of it: a copy of the pipe would keep the
    // engine waiting for the end of its input.
    const std::map<int, std::string> before = openDescriptors();
    int marked = 0;
    SystemCallFaults::during("clone", [&] {
        for (const auto& [descriptor, target] : openDescriptors()) {
            if (!before.contains(descriptor)) {
                EXPECT_NE(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0) << target;
                ++marked;
            }
        }
    });
    run({"echo-input"}, "credential");
    EXPECT_EQ(marked, 6) << "the directory, two outputs, two ends of the pipe, the process";
}

TEST_F(ProcessRunnerSystemFailuresTest, terminationIsRequestedThroughTheProcessDescriptor) {
    // An identifier may belong to a new process by now; a process descriptor never does.
    EXPECT_EQ(errorOfRun({"wait"}, std::nullopt, 0), Error::timedOut);
    EXPECT_EQ(SystemCallFaults::calls("pidfd_send_signal"), 1);
    EXPECT_EQ(SystemCallFaults::calls("kill"), 0);
    runner_.cancelCurrentOperation();
    run({"exit", "0"});
    EXPECT_EQ(SystemCallFaults::calls("pidfd_send_signal"), 1) << "nothing else is asked to end";
}

TEST_F(ProcessRunnerSystemFailuresTest, anEngineWhoseApplicationIsGoneDoesNotBegin) {
    // The new process finds another parent than the one that launched it.
    constexpr int mostCalls = 4;
    for (int occurrence = 1; occurrence <= mostCalls; ++occurrence) {
        SystemCallFaults::fail("getpid", occurrence, ESRCH);
    }
    EXPECT_EQ(errorOfRun({"exit", "0"}), Error::launchFailed);
    EXPECT_EQ(SystemCallFaults::calls("clone"), 1);
}

TEST_F(ProcessRunnerSystemFailuresTest, aTerminationRequestDuringTheLaunchIsNotLost) {
    // The engine runs already, but the runner does not hold its descriptor yet.
    SystemCallFaults::during("clone", [this] { runner_.cancelCurrentOperation(); });
    constexpr double longEnough = 5;
    std::int32_t exitCode = 0;
    EXPECT_EQ(errorOf([&] { exitCode = run({"wait"}, std::nullopt, longEnough).exitCode; }), std::nullopt);
    EXPECT_EQ(exitCode, SIGTERM);
}

TEST_F(ProcessRunnerSystemFailuresTest, anOutputThatGrowsWhileItIsReadIsReadAsItWas) {
    // The engine is gone, but what it left running still writes.
    SystemCallFaults::during("pread", [this] {
        const std::filesystem::path output = temporary_ / *privateDirectories().begin() / "stdout";
        std::ofstream(output, std::ios::app) << "written later";
    });
    EXPECT_EQ(run({"write-output", "3"}).standardOutput, "abc");
}

TEST_F(ProcessRunnerSystemFailuresTest, anOutputThatShrinksWhileItIsReadIsReadAsFarAsItGoes) {
    SystemCallFaults::moveSingleBytes();
    SystemCallFaults::during(
        "pread", [this] { std::filesystem::resize_file(temporary_ / *privateDirectories().begin() / "stdout", 2); });
    EXPECT_EQ(run({"write-output", "3"}).standardOutput, "ab");
}

TEST_F(ProcessRunnerSystemFailuresTest, theDeadlineFollowsTheWallClock) {
    // Set forward beyond the deadline, it ends the run; set back, it gives the engine more time.
    SystemCallFaults::during("poll", [] { SystemCallFaults::setClockForward(3600); });
    EXPECT_EQ(errorOfRun({"wait"}, std::nullopt, 1800), Error::timedOut);
    SystemCallFaults::reset();
    SystemCallFaults::during("poll", [] { SystemCallFaults::setClockForward(-3600); });
    EXPECT_EQ(run({"exit", "3"}, std::nullopt, 60).exitCode, 3);
}

TEST_F(ProcessRunnerSystemFailuresTest, theClockIsReadEveryTenthOfASecond) {
    // The engine runs until the second wait, the first one that may take time, is over.
    SystemCallFaults::during(
        "poll", [this] { SystemCallFaults::during("poll", [this] { runner_.cancelCurrentOperation(); }); });
    EXPECT_EQ(run({"wait"}).exitCode, SIGTERM);
    EXPECT_EQ(SystemCallFaults::longestWait(), 100);
}

using ProcessRunnerDeadlineTest = ConversingProcessRunnerTest;

namespace {

/// Lets the deadline pass once `isReached` returns: then the engine's handlers are in place.
void letTheDeadlinePassAfter(const std::function<void()>& isReached) {
    SystemCallFaults::reset();
    SystemCallFaults::during("poll", [=] {
        isReached();
        SystemCallFaults::setClockForward(3600);
    });
}

} // namespace

TEST_F(ProcessRunnerDeadlineTest, theEngineIsAskedToEndAndAwaited) {
    letTheDeadlinePassAfter([this] { awaitLog("waiting"); });
    EXPECT_EQ(errorOfRun({"exit-when-asked", "0"}), Error::timedOut);
    awaitLog("asked to end");
}

TEST_F(ProcessRunnerDeadlineTest, alsoHoldsIfAnotherProcessKeepsTheInputOpenUnread) {
    letTheDeadlinePassAfter([this] { awaitLog("waiting"); });
    EXPECT_EQ(errorOfRun({"leave-reader-and-wait"}, std::string(1U << 20U, 'x')), Error::timedOut);
    openGate();
    awaitLog("grandchild finished");
}

TEST_F(ProcessRunnerDeadlineTest, anEngineThatEndsLateIsAwaitedHoweverLongItTakes) {
    std::thread test;
    letTheDeadlinePassAfter([&] {
        awaitLog("deaf");
        test = std::thread([this] {
            awaitLog("asked to end");
            // The run waits for the engine, and the engine for this.
            openGate();
        });
    });
    EXPECT_EQ(errorOfRun({"ignore-termination", "0"}), Error::timedOut);
    test.join();
    EXPECT_EQ(awaitLog("finished"), "finished 0");
}

TEST_F(ProcessRunnerDeadlineTest, aCancellationAfterTheTimeoutIsStillATimeout) {
    std::thread test;
    letTheDeadlinePassAfter([&] {
        awaitLog("deaf");
        test = std::thread([this] {
            awaitLog("asked to end");
            runner_.cancelCurrentOperation();
            awaitLog("asked to end");
            openGate();
        });
    });
    EXPECT_EQ(errorOfRun({"ignore-termination", "0"}), Error::timedOut);
    test.join();
}

TEST_F(ProcessRunnerSystemFailuresTest, whatReplacesTheNewDirectoryIsNotTouched) {
    // Others may write to this temporary directory, and exchange what lies in it at any moment.
    namespace fs = std::filesystem;
    const fs::path photos = directory_ / "photos";
    fs::create_directory(photos);
    fs::permissions(photos, fs::perms(0755));
    TestFiles::write(photos / "stdout", "a file that only has the name of an output");
    const auto expectUntouched = [&](const fs::path& made, const std::function<void()>& exchange) {
        SystemCallFaults::reset();
        SystemCallFaults::during("mkdir", exchange);
        EXPECT_EQ(errorOfRun({"exit", "0"}), Error::temporaryOutputUnavailable);
        EXPECT_EQ(fs::status(made).permissions(), fs::perms(0755));
        EXPECT_EQ(TestFiles::read(made / "stdout"), "a file that only has the name of an output");
    };
    fs::path made;
    const auto removeMade = [&] {
        made = temporary_ / *privateDirectories().begin();
        fs::remove(made);
    };
    expectUntouched(photos, [&] {
        removeMade();
        fs::create_directory_symlink(photos, made);
    });
    fs::remove(made);
    expectUntouched(photos, [&] {
        removeMade();
        fs::rename(photos, made);
        fs::create_directory_symlink(made, photos);
    });
    fs::remove_all(made);
    fs::remove(photos);
}

TEST_F(ProcessRunnerSystemFailuresTest, withoutThePathOfTheExecutableThereIsNoBundle) {
    SystemCallFaults::fail("readlink", 1, EACCES);
    EXPECT_EQ(ApplicationBundle::mainBundle().bundlePath(), "");
    EXPECT_EQ(ApplicationBundle::mainBundle().resourcePath(), std::nullopt);
}
