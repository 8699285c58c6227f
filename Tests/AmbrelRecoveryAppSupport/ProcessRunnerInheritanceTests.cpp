// What the engine gets from the application: three streams, the environment, the working directory and nothing else.

#include "AmbrelPlatform/UniqueDescriptor.h"
#include "ProcessRunnerTest.h"
#include "Support/ChildProcess.h"
#include "Support/MisbehavingEngine.h"

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <sched.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::MatchesRegex;

namespace {

using ProcessRunnerInheritanceTest = ProcessRunnerTest;

std::string value(const std::string& report, const std::string& name) {
    for (const std::string& line : linesOf(report)) {
        if (line.starts_with(name + ":\t")) {
            return line.substr(name.size() + 2);
        }
    }
    return "missing";
}

/// Leaves the process without the standard streams whose bits are set in `closed`.
void closeStandardStreams(int closed) {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if ((closed & (1 << stream)) != 0) {
            close(stream);
        }
    }
}

constexpr std::size_t lastSignal = 64;
constexpr std::size_t signalSetSize = lastSignal / 8;

/// As the system takes it: first the handler, all zeros behind it are no flags and no mask. The C library's call
/// refuses the two signals that it keeps for itself.
using SystemsAction = std::array<unsigned long, 8>;

void ignore(int signal, std::map<int, SystemsAction>& previousActions) {
    const SystemsAction ignoring = {1};
    SystemsAction previous{};
    if (syscall(SYS_rt_sigaction, signal, ignoring.data(), previous.data(), signalSetSize) == 0) {
        previousActions[signal] = previous;
    }
}

volatile sig_atomic_t alarms = 0;

void countAlarm(int) {
    alarms = alarms + 1;
}

} // namespace

TEST_F(ProcessRunnerInheritanceTest, theEngineHasTheThreeStreamsAndNoOtherDescriptor) {
    const std::string outputs = temporary_.string() + "/com\\.ambrel\\.recovery-output\\.[-0-9A-F]+/";
    EXPECT_THAT(valuesOf(run({"print-descriptors"}).standardOutput, "descriptor"),
                ElementsAre("0 r /dev/null", MatchesRegex("1 rw " + outputs + "stdout"),
                            MatchesRegex("2 rw " + outputs + "stderr")));
    EXPECT_THAT(valuesOf(run({"print-descriptors"}, "credential").standardOutput, "descriptor"),
                ElementsAre(MatchesRegex("0 r pipe:\\[[0-9]+\\]"), MatchesRegex("1 rw " + outputs + "stdout"),
                            MatchesRegex("2 rw " + outputs + "stderr")));
}

TEST_F(ProcessRunnerInheritanceTest, descriptorsThatTheApplicationForgotToMarkDoNotReachTheEngine) {
    const UniqueDescriptor unmarked(open("/dev/zero", O_RDONLY));
    const UniqueDescriptor far(fcntl(unmarked.get(), F_DUPFD, 900));
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const UniqueDescriptor readEnd(ends[0]);
    const UniqueDescriptor writeEnd(ends[1]);
    ASSERT_TRUE(unmarked && far);

    EXPECT_EQ(valuesOf(run({"print-descriptors"}).standardOutput, "descriptor").size(), 3U);
    EXPECT_EQ(valuesOf(run({"print-descriptors"}, "credential").standardOutput, "descriptor").size(), 3U);
}

TEST_F(ProcessRunnerInheritanceTest, worksForAProcessWithoutStandardStreams) {
    for (int closed = 1; closed < 8; ++closed) {
        const std::string outcome = ChildProcess::outcome([&] {
            closeStandardStreams(closed);
            const std::string without = run({"print-descriptors"}).standardOutput;
            const std::string with = run({"echo-input"}, "credential").standardOutput;
            const Result result = run({"write-both", "26"});
            const std::string alphabet = "abcdefghijklmnopqrstuvwxyz";
            std::string findings;
            findings += valuesOf(without, "descriptor").size() != 3 ? "not three descriptors: " + without : "";
            findings += without.starts_with("descriptor 0 r /dev/null\n") ? "" : "no null device: " + without;
            findings += with == echoOf("credential\n") ? "" : "not the credential: " + with;
            findings += result.standardOutput == alphabet ? "" : "output: " + result.standardOutput;
            findings += result.standardError == alphabet ? "" : "error: " + result.standardError;
            return findings;
        });
        EXPECT_EQ(outcome, "") << "closed streams, as bits: " << closed;
    }
}

TEST_F(ProcessRunnerInheritanceTest, noSignalIsBlockedIgnoredOrPendingInTheEngine) {
    sigset_t everySignal;
    sigfillset(&everySignal);
    sigset_t previousMask;
    pthread_sigmask(SIG_BLOCK, &everySignal, &previousMask);
    std::map<int, SystemsAction> previousActions;
    for (int signal = 1; std::cmp_less_equal(signal, lastSignal); ++signal) {
        // Without this one the system forgets how the engine ended.
        if (signal != SIGCHLD) {
            ignore(signal, previousActions);
        }
    }
    EXPECT_EQ(previousActions.size(), lastSignal - 3) << "all but this one, SIGKILL and SIGSTOP";

    const std::string report = run({"print-signals"}).standardOutput;

    for (const auto& [signal, action] : previousActions) {
        syscall(SYS_rt_sigaction, signal, action.data(), nullptr, signalSetSize);
    }
    pthread_sigmask(SIG_SETMASK, &previousMask, nullptr);
    for (const char* const name : {"SigPnd", "ShdPnd", "SigBlk", "SigIgn", "SigCgt"}) {
        EXPECT_EQ(value(report, name), "0000000000000000") << name;
    }
}

TEST_F(ProcessRunnerInheritanceTest, anEngineWhoseApplicationIsGoneDoesNotStart) {
    // Orphans belong to another process by then. So it looks from within a namespace that the application is not in.
    const std::string outcome = ChildProcess::outcome([&]() -> std::string {
        const int privileges = geteuid() == 0 ? 0 : CLONE_NEWUSER;
        if (unshare(CLONE_NEWPID | privileges) != 0) {
            return "not allowed";
        }
        const std::optional<Error> error = errorOf([&] { run({"exit", "0"}); });
        return error ? std::string(nameOf(*error)) : "started";
    });
    if (outcome == "not allowed") {
        GTEST_SKIP() << "this system grants no namespaces";
    }
    EXPECT_EQ(outcome, "launchFailed");
}

TEST_F(ProcessRunnerInheritanceTest, theCallersSignalMaskIsRestored) {
    sigset_t before;
    pthread_sigmask(SIG_SETMASK, nullptr, &before);
    run({"exit", "0"}, "credential");
    sigset_t after;
    pthread_sigmask(SIG_SETMASK, nullptr, &after);
    for (int signal = 1; signal <= SIGRTMAX; ++signal) {
        EXPECT_EQ(sigismember(&before, signal), sigismember(&after, signal)) << signal;
    }
}

TEST_F(ProcessRunnerInheritanceTest, signalsThatInterruptSystemCallsChangeNothing) {
    struct sigaction interrupting {};
    interrupting.sa_handler = countAlarm;
    struct sigaction previous {};
    sigaction(SIGALRM, &interrupting, &previous);
    const itimerval everyMillisecond{{0, 1000}, {0, 1000}};
    setitimer(ITIMER_REAL, &everyMillisecond, nullptr);

    alarms = 0;
    const std::string credential(100000, 'x');
    for (int count = 0; count < 5 || alarms < 5; ++count) {
        EXPECT_TRUE(run({"echo-input-slowly"}, credential).standardOutput == echoOf(credential + "\n"));
    }

    const itimerval never{};
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &previous, nullptr);
}

TEST_F(ProcessRunnerInheritanceTest, aProcessThatIgnoresItsChildrenNeverTakesAFailureForASuccess) {
    // The system forgets the status of such children at once.
    const std::string outcome = ChildProcess::outcome([&] {
        signal(SIGCHLD, SIG_IGN);
        std::int32_t exitCode = 1;
        const std::optional<Error> error = errorOf([&] { exitCode = run({"exit", "3"}, "credential").exitCode; });
        return std::string(error || exitCode != 0 ? "" : "a failure taken for a success");
    });
    EXPECT_EQ(outcome, "");
}
