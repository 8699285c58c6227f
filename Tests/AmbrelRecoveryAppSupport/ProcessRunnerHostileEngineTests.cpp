// Engines that lay hands on their own outputs, or leave others behind.

#include "ProcessRunnerTest.h"
#include "Support/ChildProcess.h"
#include "Support/MisbehavingEngine.h"
#include "Support/ScopedEnvironment.h"
#include "Support/TestFiles.h"

#include <csignal>
#include <functional>
#include <limits>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

class ProcessRunnerHostileEngineTest : public ProcessRunnerTest {
protected:
    /// Runs the body as an ordinary user with a temporary directory and an engine that this user may use.
    std::string outcomeAsOrdinaryUser(
        const std::function<std::string(AmbrelRecoveryProcessRunner&, const fs::path& temporary)>& body) const {
        const fs::path engine = directory_ / "engine";
        const fs::path temporary = directory_ / "ordinary";
        fs::copy_file(misbehavingEngine(), engine, fs::copy_options::overwrite_existing);
        fs::permissions(engine, fs::perms(0755));
        fs::create_directory(temporary);
        fs::permissions(temporary, fs::perms(01777));
        return ChildProcess::outcome([&] {
            ChildProcess::dropPrivileges();
            const ScopedEnvironment configured("TMPDIR", temporary.string());
            AmbrelRecoveryProcessRunner runner(engine);
            return body(runner, temporary);
        });
    }
};

/// What engines write before they lay hands on their outputs.
constexpr std::string_view fromTheEngine = "from the engine\n";

std::string errorName(AmbrelRecoveryProcessRunner& runner, const std::vector<std::string>& arguments) {
    const auto error = errorOf([&] { runner.run(arguments, std::nullopt, 120); });
    return std::string(error ? nameOf(*error) : "none");
}

} // namespace

TEST_F(ProcessRunnerHostileEngineTest, outputsAreReadEvenIfTheyWereRenamedOrRemoved) {
    EXPECT_EQ(run({"remove-output-directory"}).standardOutput, fromTheEngine);
    EXPECT_EQ(run({"remove-output-file", "stdout"}).standardOutput, fromTheEngine);
    EXPECT_EQ(run({"remove-output-file", "stderr"}, "credential").standardOutput, fromTheEngine);
}

TEST_F(ProcessRunnerHostileEngineTest, whatReplacesAnOutputFileIsNotRead) {
    TestFiles::write(directory_ / "private", "of another file");
    EXPECT_EQ(run({"replace-output", "link", (directory_ / "private").string()}).standardOutput, fromTheEngine);
    EXPECT_EQ(run({"replace-output", "link", "/dev/zero"}).standardOutput, fromTheEngine);
    EXPECT_EQ(run({"replace-output", "directory"}).standardOutput, fromTheEngine);
    EXPECT_EQ(run({"replace-output", "fifo"}).standardOutput, fromTheEngine);
    EXPECT_EQ(run({"replace-output", "file"}).standardOutput, fromTheEngine);
    EXPECT_EQ(TestFiles::read(directory_ / "private"), "of another file");
}

TEST_F(ProcessRunnerHostileEngineTest, anOutputOfMoreThanAGibibyteIsReadInFull) {
    constexpr long long length = (1LL << 30LL) + 1;
    const Result result = run({"grow-output", std::to_string(length)});
    EXPECT_EQ(result.standardOutput.size(), static_cast<std::size_t>(length));
}

TEST_F(ProcessRunnerHostileEngineTest, anOutputLongerThanAnyTextCannotBeRead) {
    // Files in memory may be that long.
    const ScopedEnvironment temporary("TMPDIR", "/dev/shm");
    const std::string longest = std::to_string(std::numeric_limits<long long>::max());
    EXPECT_THROW(run({"grow-output", longest}), AmbrelRecoveryProcessError);
}

TEST_F(ProcessRunnerHostileEngineTest, closedOutputsAreEmpty) {
    EXPECT_EQ(run({"close-outputs"}).standardOutput, "");
}

TEST_F(ProcessRunnerHostileEngineTest, whatAnEngineAddsToItsDirectoryIsRemovedButNotWhatItLinksTo) {
    fs::create_directory(directory_ / "photos");
    TestFiles::write(directory_ / "photos" / "precious", "kept");
    EXPECT_EQ(run({"litter-output-directory", (directory_ / "photos").string()}).exitCode, 0);
    EXPECT_EQ(TestFiles::read(directory_ / "photos" / "precious"), "kept");
}

TEST_F(ProcessRunnerHostileEngineTest, whatReplacesTheDirectoryIsNotTouched) {
    const fs::path photos = directory_ / "photos";
    fs::create_directories(photos / "album");
    fs::permissions(photos, fs::perms(0755));
    fs::permissions(photos / "album", fs::perms(0750));
    TestFiles::write(photos / "stdout", "a file that only has the name of an output");
    for (const char* const name : {"photos", "missing"}) {
        const Result result = run({"replace-output-directory", (directory_ / name).string()});
        EXPECT_EQ(result.standardOutput, fromTheEngine);
        EXPECT_EQ(privateDirectories(), std::set<std::string>());
    }
    EXPECT_EQ(TestFiles::names(photos), (std::set<std::string>{"album", "stdout"}));
    EXPECT_EQ(fs::status(photos).permissions(), fs::perms(0755));
    EXPECT_EQ(fs::status(photos / "album").permissions(), fs::perms(0750));
}

TEST_F(ProcessRunnerHostileEngineTest, lockedFilesOfAnOrdinaryUserAreRemoved) {
    const std::string outcome = outcomeAsOrdinaryUser([](auto& runner, const fs::path& temporary) {
        const std::string error = errorName(runner, {"lock-output-directory"});
        const std::size_t left = TestFiles::names(temporary).size();
        // So that the test's own directory can be removed.
        for (const std::string& directory : privateDirectoriesIn(temporary)) {
            chmod((temporary / directory).c_str(), 0700);
        }
        return error == "none" && left == 0 ? std::string()
                                            : "error: " + error + ", entries left: " + std::to_string(left);
    });
    EXPECT_EQ(outcome, "");
}

TEST_F(ProcessRunnerHostileEngineTest, outputFilesThatAnOrdinaryUserMayNoLongerOpenAreStillRead) {
    const std::string outcome = outcomeAsOrdinaryUser([](auto& runner, const fs::path& temporary) {
        return runner.run({"hide-outputs"}, std::nullopt, patience).standardOutput +
               "left: " + std::to_string(TestFiles::names(temporary).size());
    });
    EXPECT_EQ(outcome, std::string(fromTheEngine) + "left: 0");
}

TEST_F(ProcessRunnerHostileEngineTest, anOrdinaryUserMayHaveAnyUmask) {
    const std::string outcome = outcomeAsOrdinaryUser([](auto& runner, const fs::path&) {
        umask(0777);
        return errorName(runner, {"exit", "0"});
    });
    EXPECT_EQ(outcome, "none");
}

TEST_F(ProcessRunnerHostileEngineTest, aTemporaryDirectoryThatAnOrdinaryUserMayNotChangeFailsTheRun) {
    const std::string outcome = outcomeAsOrdinaryUser([](auto& runner, const fs::path& temporary) {
        const fs::path locked = temporary / "locked";
        mkdir(locked.c_str(), 0500);
        const ScopedEnvironment configured("TMPDIR", locked.string());
        return errorName(runner, {"exit", "0"});
    });
    EXPECT_EQ(outcome, "temporaryOutputUnavailable");
}

TEST_F(ProcessRunnerHostileEngineTest, anEngineThatAnOrdinaryUserMayNotExecuteIsUnavailable) {
    const std::string outcome = outcomeAsOrdinaryUser([](auto&, const fs::path& temporary) {
        TestFiles::write(temporary / "engine", "#!/bin/sh\n", 0644);
        AmbrelRecoveryProcessRunner unavailable(temporary / "engine");
        return errorName(unavailable, {});
    });
    EXPECT_EQ(outcome, "executableUnavailable");
}

using ProcessRunnerGrandchildTest = ConversingProcessRunnerTest;

/// More than any pipe holds.
const std::string largeCredential(1U << 20U, 'x');

TEST_F(ProcessRunnerGrandchildTest, theRunEndsWithTheEngineAndNotWithWhatItLeavesRunning) {
    const Result result = run({"leave-grandchild", "3"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.standardOutput, "from the engine\n");
    openGate();
    awaitLog("grandchild finished");
}

TEST_F(ProcessRunnerGrandchildTest, aCredentialThatNobodyWillReadFailsTheRunWhenTheEngineEnds) {
    // What it left running keeps the pipe whole, and never reads.
    EXPECT_EQ(errorOfRun({"leave-reader", "3"}, largeCredential), Error::launchFailed);
    openGate();
    awaitLog("grandchild finished");
}

TEST_F(ProcessRunnerGrandchildTest, aCancelledEngineThatHasClosedItsInputIsAwaited) {
    std::stop_source cancelled;
    cancelled.request_stop();
    for (int count = 0; count < 20; ++count) {
        EXPECT_EQ(run({"close-input"}, largeCredential, patience, cancelled.get_token()).exitCode, SIGTERM);
    }
}

TEST_F(ProcessRunnerGrandchildTest, aStoppedEngineHasNotEnded) {
    std::thread continuing([this] {
        const pid_t engine = awaitStart();
        siginfo_t information{};
        waitid(P_PID, static_cast<id_t>(engine), &information, WSTOPPED | WNOWAIT);
        EXPECT_EQ(information.si_code, CLD_STOPPED);
        // Asked to end, it does so once it may run again.
        cancel();
        kill(engine, SIGCONT);
    });
    EXPECT_EQ(runCancellable({"stop"}).exitCode, SIGTERM);
    continuing.join();
}
