// How the credential reaches the engine.

#include "ProcessRunnerTest.h"

#include <gmock/gmock.h>

#include <csignal>

using testing::ElementsAre;

namespace {

using ProcessRunnerCredentialTest = ProcessRunnerTest;

constexpr std::size_t pipeCapacity = 65536;

/// Bytes without a pattern that shifted or repeated ones would keep.
std::string scrambled(std::size_t count) {
    std::string bytes;
    unsigned state = 12345;
    while (bytes.size() < count) {
        state = state * 1103515245U + 12345U;
        bytes += static_cast<char>(state >> 16U);
    }
    return bytes;
}

/// Puts back a signal's disposition when it is destroyed.
class ScopedDisposition {
public:
    ScopedDisposition(int signal, void (*handler)(int)) : signal_(signal) {
        struct sigaction action {};
        action.sa_handler = handler;
        sigaction(signal, &action, &previous_);
    }
    ScopedDisposition(const ScopedDisposition&) = delete;
    ScopedDisposition& operator=(const ScopedDisposition&) = delete;
    ~ScopedDisposition() { sigaction(signal_, &previous_, nullptr); }

private:
    int signal_;
    struct sigaction previous_ {};
};

void (*disposition(int signal))(int) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler;
}

bool isPending(int signal) {
    sigset_t pending;
    sigpending(&pending);
    return sigismember(&pending, signal) == 1;
}

bool isBlocked(int signal) {
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    return sigismember(&blocked, signal) == 1;
}

volatile sig_atomic_t handlerCalls = 0;

void countCall(int) {
    handlerCalls = handlerCalls + 1;
}

} // namespace

TEST_F(ProcessRunnerCredentialTest, withoutACredentialTheInputEndsAtOnce) {
    EXPECT_EQ(run({"echo-input"}).standardOutput, "input 0 \n");
}

TEST_F(ProcessRunnerCredentialTest, withoutACredentialTheInputIsTheNullDevice) {
    EXPECT_THAT(valuesOf(run({"print-descriptors"}).standardOutput, "descriptor").at(0), "0 r /dev/null");
}

TEST_F(ProcessRunnerCredentialTest, anEmptyCredentialIsALineFeed) {
    EXPECT_EQ(run({"echo-input"}, "").standardOutput, echoOf("\n"));
    EXPECT_EQ(runner_.run({"echo-input"}, std::span<const std::byte>(), patience).standardOutput, echoOf("\n"));
}

TEST_F(ProcessRunnerCredentialTest, arrivesWithOneTrailingLineFeed) {
    EXPECT_EQ(run({"echo-input"}, "open sesame").standardOutput, echoOf("open sesame\n"));
}

TEST_F(ProcessRunnerCredentialTest, isNeitherTrimmedNorInterpreted) {
    for (const std::string_view credential :
         {"  blanks  ", "\n", "line\nfeeds\n\n", "\r\n", "caf\xC3\xA9", "\xFF\xFE not UTF-8", "-n", "$(id)"}) {
        EXPECT_EQ(run({"echo-input"}, credential).standardOutput, echoOf(std::string(credential) + "\n"));
    }
    using namespace std::string_view_literals;
    EXPECT_EQ(run({"echo-input"}, "nul\0inside\0"sv).standardOutput, echoOf("nul\0inside\0\n"sv));
}

TEST_F(ProcessRunnerCredentialTest, arrivesWholeAroundTheSizeOfThePipe) {
    for (const std::size_t size : {pipeCapacity - 2, pipeCapacity - 1, pipeCapacity, pipeCapacity + 1, 2 * pipeCapacity,
                                   std::size_t{3'000'017}}) {
        const std::string credential = scrambled(size);
        EXPECT_TRUE(run({"echo-input"}, credential).standardOutput == echoOf(credential + "\n")) << size;
    }
}

TEST_F(ProcessRunnerCredentialTest, arrivesWholeAtAnEngineThatReadsByteByByte) {
    const std::string credential = scrambled(pipeCapacity + 1000);
    EXPECT_TRUE(run({"echo-input-slowly"}, credential).standardOutput == echoOf(credential + "\n"));
}

TEST_F(ProcessRunnerCredentialTest, staysOutOfArgumentsEnvironmentAndFiles) {
    const std::string credential = "a-very-visible-credential";
    const Result result = run({"print-everything"}, credential);
    const std::string report = result.standardOutput;
    EXPECT_EQ(report.find(credential), std::string::npos);
    EXPECT_THAT(valuesOf(report, "entry"), ElementsAre("0600 stderr", "0600 stdout"));
    EXPECT_EQ("input " + valuesOf(report, "input").at(0) + "\n", echoOf(credential + "\n"));
}

TEST_F(ProcessRunnerCredentialTest, anEngineThatClosesItsInputAtOnceIsEndedAndTheRunFails) {
    // More than the pipe holds, so that the write cannot succeed before the engine has closed.
    EXPECT_EQ(errorOfRun({"close-input"}, scrambled(2 * pipeCapacity)), Error::launchFailed);
}

TEST_F(ProcessRunnerCredentialTest, anEngineThatExitsWithoutReadingALargeCredentialMakesTheRunFail) {
    EXPECT_EQ(errorOfRun({"close-input-and-exit", "0"}, scrambled(2 * pipeCapacity)), Error::launchFailed);
    EXPECT_EQ(errorOfRun({"close-input-and-exit", "3"}, scrambled(2 * pipeCapacity)), Error::launchFailed);
    EXPECT_EQ(errorOfRun({"read-part", "1"}, scrambled(4 * pipeCapacity)), Error::launchFailed);
}

TEST_F(ProcessRunnerCredentialTest, anEngineThatEndsBeforeItReadsASmallCredentialStillReturnsItsStatus) {
    // Whichever is first, the engine's end or the write: what the pipe holds is delivered.
    for (int count = 0; count < 20; ++count) {
        EXPECT_EQ(run({"close-input-and-exit", "3"}, "small").exitCode, 3);
    }
    EXPECT_EQ(run({"close-input-and-exit", "3"}, scrambled(pipeCapacity - 1)).exitCode, 3);
}

TEST_F(ProcessRunnerCredentialTest, anEngineThatClosesItsInputOnASmallCredentialAndContinuesIsAwaited) {
    EXPECT_EQ(errorOfRun({"close-input"}, "small", 0.1), Error::timedOut);
}

TEST_F(ProcessRunnerCredentialTest, anEngineThatReadsOnlyPartOfASmallCredentialEndsInAnOrdinaryResult) {
    EXPECT_EQ(run({"read-part", "6"}, "small").exitCode, 0);
}

TEST_F(ProcessRunnerCredentialTest, aBrokenPipeKillsNothingIfTheSignalHasItsDefaultAction) {
    const ScopedDisposition standard(SIGPIPE, SIG_DFL);
    EXPECT_EQ(errorOfRun({"close-input"}, scrambled(2 * pipeCapacity)), Error::launchFailed);
    EXPECT_EQ(disposition(SIGPIPE), SIG_DFL);
    EXPECT_FALSE(isBlocked(SIGPIPE));
    EXPECT_FALSE(isPending(SIGPIPE));
}

TEST_F(ProcessRunnerCredentialTest, aBrokenPipeReachesNoHandlerOfTheApplication) {
    const ScopedDisposition counting(SIGPIPE, countCall);
    handlerCalls = 0;
    EXPECT_EQ(errorOfRun({"close-input"}, scrambled(2 * pipeCapacity)), Error::launchFailed);
    EXPECT_EQ(handlerCalls, 0);
    EXPECT_EQ(disposition(SIGPIPE), countCall);
}

TEST_F(ProcessRunnerCredentialTest, aBrokenPipeLeavesAnIgnoredSignalIgnored) {
    const ScopedDisposition ignoring(SIGPIPE, SIG_IGN);
    EXPECT_EQ(errorOfRun({"close-input"}, scrambled(2 * pipeCapacity)), Error::launchFailed);
    EXPECT_EQ(disposition(SIGPIPE), SIG_IGN);
}

TEST_F(ProcessRunnerCredentialTest, aBrokenPipeSignalThatWasAlreadyPendingStaysSo) {
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    sigset_t previous;
    pthread_sigmask(SIG_BLOCK, &brokenPipe, &previous);
    pthread_kill(pthread_self(), SIGPIPE);

    EXPECT_EQ(errorOfRun({"close-input"}, scrambled(2 * pipeCapacity)), Error::launchFailed);
    EXPECT_TRUE(isBlocked(SIGPIPE));
    EXPECT_TRUE(isPending(SIGPIPE));

    int taken = 0;
    sigwait(&brokenPipe, &taken);
    EXPECT_EQ(errorOfRun({"close-input"}, scrambled(2 * pipeCapacity)), Error::launchFailed);
    EXPECT_FALSE(isPending(SIGPIPE));
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
}
