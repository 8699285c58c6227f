// Every system call of a run, failing.

#include "ProcessRunnerTest.h"
#include "Support/OpenDescriptors.h"
#include "SystemCallFaults.h"

#include <cerrno>
#include <csignal>
#include <new>

#include <fcntl.h>
#include <sys/wait.h>

namespace {

using Error = AmbrelRecoveryProcessError;

class ProcessRunnerSystemFailuresTest : public ProcessRunnerTest {
protected:
    void SetUp() override {
        ProcessRunnerTest::SetUp();
        SystemCallFaults::reset();
    }

    void TearDown() override {
        SystemCallFaults::reset();
        ProcessRunnerTest::TearDown();
    }
};

struct FailureCase {
    const char* call;
    int occurrence;
    int error;
    Error expected;
};

} // namespace

TEST_F(ProcessRunnerSystemFailuresTest, EndInTheErrorOfTheirStep) {
    const FailureCase cases[] = {
        {"mkdir", 1, ENOSPC, Error::temporaryOutputUnavailable},
        {"mkdir", 1, EEXIST, Error::temporaryOutputUnavailable},
        {"chmod", 1, EPERM, Error::temporaryOutputUnavailable},
        {"open", 1, ENOSPC, Error::temporaryOutputUnavailable}, // making stdout
        {"fchmod", 1, EPERM, Error::temporaryOutputUnavailable},
        {"open", 2, EDQUOT, Error::temporaryOutputUnavailable}, // making stderr
        {"fchmod", 2, EPERM, Error::temporaryOutputUnavailable},
        {"pipe2", 1, ENFILE, Error::launchFailed},
        {"posix_spawn", 1, EAGAIN, Error::launchFailed},
        {"posix_spawn", 1, ENOMEM, Error::launchFailed},
        {"pidfd_open", 1, EMFILE, Error::launchFailed},
        {"write", 1, EIO, Error::launchFailed},
        {"open", 3, EIO, Error::temporaryOutputUnavailable}, // reading stdout back
        {"read", 1, EIO, Error::temporaryOutputUnavailable},
        {"open", 4, EMFILE, Error::temporaryOutputUnavailable}, // reading stderr back
        {"read", 3, EIO, Error::temporaryOutputUnavailable},    // after the text and the end of stdout
    };
    for (const FailureCase& failure : cases) {
        SCOPED_TRACE(testing::Message() << failure.call << " " << failure.occurrence << " " << failure.error);
        SystemCallFaults::reset();
        SystemCallFaults::fail(failure.call, failure.occurrence, failure.error);
        EXPECT_EQ(errorOfRun({"echo-input"}, "credential"), failure.expected);
        EXPECT_GE(SystemCallFaults::calls(failure.call), failure.occurrence);
        EXPECT_EQ(privateDirectories(), std::set<std::string>());
    }
    SystemCallFaults::reset();
    EXPECT_EQ(run({"echo-input"}, "credential").standardOutput, echoOf("credential\n"));
}

TEST_F(ProcessRunnerSystemFailuresTest, OfEveryCloseAreHarmlessExceptForTheEndOfTheCredential) {
    run({"echo-input"}, "credential");
    const int closes = SystemCallFaults::calls("close");
    ASSERT_GE(closes, 6);
    int failed = 0;
    for (int occurrence = 1; occurrence <= closes; ++occurrence) {
        SystemCallFaults::reset();
        SystemCallFaults::fail("close", occurrence, EIO);
        const std::optional<Error> error = errorOfRun({"echo-input"}, "credential");
        EXPECT_TRUE(!error || error == Error::launchFailed) << occurrence;
        failed += error ? 1 : 0;
    }
    EXPECT_EQ(failed, 1) << "the close of the pipe's write end and no other";
}

TEST_F(ProcessRunnerSystemFailuresTest, WithoutMemoryForTheCredentialTheRunIsNotStarted) {
    SystemCallFaults::fail("mmap", 1, ENOMEM);
    EXPECT_THROW(run({"echo-input"}, "credential"), std::bad_alloc);
    EXPECT_EQ(SystemCallFaults::calls("posix_spawn"), 0);
}

TEST_F(ProcessRunnerSystemFailuresTest, OfTheDeliveryEndAnEngineThatWouldWaitForEver) {
    SystemCallFaults::fail("write", 1, EIO);
    EXPECT_EQ(errorOfRun({"wait"}, "credential"), Error::launchFailed);
    EXPECT_EQ(SystemCallFaults::calls("pidfd_send_signal"), 1);
}

TEST_F(ProcessRunnerSystemFailuresTest, OfTheProcessDescriptorEndAnEngineThatWouldWaitForEver) {
    SystemCallFaults::fail("pidfd_open", 1, ENFILE);
    EXPECT_EQ(errorOfRun({"wait"}), Error::launchFailed);
}

TEST_F(ProcessRunnerSystemFailuresTest, ByInterruptionAreTriedAgain) {
    for (const char* const call : {"write", "read", "poll", "waitid", "close"}) {
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

TEST_F(ProcessRunnerSystemFailuresTest, ByPartialTransfersAreCompleted) {
    SystemCallFaults::moveSingleBytes();
    const std::string credential = "a credential that goes byte by byte";
    EXPECT_EQ(run({"echo-input"}, credential).standardOutput, echoOf(credential + "\n"));
    EXPECT_GT(SystemCallFaults::calls("write"), 30);
    EXPECT_GT(SystemCallFaults::calls("read"), 60);
}

TEST_F(ProcessRunnerSystemFailuresTest, ThatHideTheStatusNeverLookLikeASuccess) {
    // Somebody else has waited for the child process: its status is lost. The fault leaves the real one to be reaped.
    SystemCallFaults::fail("waitid", 1, ECHILD);
    EXPECT_NE(run({"exit", "0"}).exitCode, 0);
    siginfo_t information{};
    EXPECT_EQ(waitid(P_ALL, 0, &information, WEXITED), 0);
}

TEST_F(ProcessRunnerSystemFailuresTest, DoNotComeFromDescriptorsInOtherProgramsThatAreStartedMeanwhile) {
    // Whatever the application starts in the middle of a run gets nothing of it: a copy of the pipe would keep the
    // engine waiting for the end of its input.
    const std::map<int, std::string> before = openDescriptors();
    int marked = 0;
    SystemCallFaults::during("pidfd_open", [&] {
        for (const auto& [descriptor, target] : openDescriptors()) {
            if (!before.contains(descriptor)) {
                EXPECT_NE(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0) << target;
                ++marked;
            }
        }
    });
    run({"echo-input"}, "credential");
    EXPECT_EQ(marked, 5) << "two outputs, two ends of the pipe, the process";
}

TEST_F(ProcessRunnerSystemFailuresTest, AreNotCausedByTerminationRequestsToAnIdentifier) {
    // An identifier may belong to a new process by now; a process descriptor never does.
    EXPECT_EQ(errorOfRun({"wait"}, std::nullopt, 0), Error::timedOut);
    EXPECT_EQ(SystemCallFaults::calls("pidfd_send_signal"), 1);
    EXPECT_EQ(SystemCallFaults::calls("kill"), 0);
    runner_.cancelCurrentOperation();
    EXPECT_EQ(SystemCallFaults::calls("pidfd_send_signal"), 1) << "nothing is running any more";
}

TEST_F(ProcessRunnerSystemFailuresTest, ARequestToEndInTheMiddleOfTheLaunchIsNotLost) {
    // The engine runs already, but the runner does not hold its descriptor yet.
    SystemCallFaults::during("pidfd_open", [this] { runner_.cancelCurrentOperation(); });
    constexpr double longEnough = 5;
    std::int32_t exitCode = 0;
    EXPECT_EQ(errorOf([&] { exitCode = run({"wait"}, std::nullopt, longEnough).exitCode; }), std::nullopt);
    EXPECT_EQ(exitCode, SIGTERM);
}
