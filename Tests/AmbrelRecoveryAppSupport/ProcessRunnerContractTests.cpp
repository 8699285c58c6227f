// What a run takes and gives when nothing goes wrong.

#include "MisbehavingEngine/Text.h"
#include "ProcessRunnerTest.h"
#include "Support/MisbehavingEngine.h"
#include "Support/TestFiles.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>

#include <unistd.h>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::StartsWith;

namespace {

using ProcessRunnerContractTest = ProcessRunnerTest;

/// Changes the working directory until it is destroyed.
class ScopedWorkingDirectory {
public:
    explicit ScopedWorkingDirectory(const fs::path& directory) { fs::current_path(directory); }
    ScopedWorkingDirectory(const ScopedWorkingDirectory&) = delete;
    ScopedWorkingDirectory& operator=(const ScopedWorkingDirectory&) = delete;
    ~ScopedWorkingDirectory() { fs::current_path(previous_); }

private:
    const fs::path previous_ = fs::current_path();
};

std::string alphabet(std::size_t count) {
    std::string text;
    while (text.size() < count) {
        text += "abcdefghijklmnopqrstuvwxyz";
    }
    text.resize(count);
    return text;
}

} // namespace

TEST_F(ProcessRunnerContractTest, standardizesTheExecutablesPath) {
    EXPECT_EQ(AmbrelRecoveryProcessRunner("/a/./b/../bin/ambrel-recovery").executableURL(), "/a/bin/ambrel-recovery");
    EXPECT_EQ(AmbrelRecoveryProcessRunner("/../a//b").executableURL(), "/a/b");
    EXPECT_EQ(AmbrelRecoveryProcessRunner("bin/../ambrel-recovery").executableURL(),
              fs::current_path() / "ambrel-recovery");
}

TEST_F(ProcessRunnerContractTest, acceptsAPathThatCannotBeStandardizedButFindsNothingThere) {
    EXPECT_EQ(errorOfRunning(""), Error::executableUnavailable);
    EXPECT_EQ(AmbrelRecoveryProcessRunner("").executableURL(), "");
    fs::create_directory(directory_ / "gone");
    const ScopedWorkingDirectory elsewhere(directory_ / "gone");
    fs::remove(directory_ / "gone");
    EXPECT_EQ(errorOfRunning("engine"), Error::executableUnavailable);
}

TEST_F(ProcessRunnerContractTest, doesNotExamineTheExecutableBeforeARun) {
    const fs::path engine = directory_ / "engine";
    AmbrelRecoveryProcessRunner runner(engine);
    fs::create_symlink(misbehavingEngine(), engine);
    EXPECT_EQ(runner.run({"exit", "4"}, std::nullopt, patience).exitCode, 4);
}

TEST_F(ProcessRunnerContractTest, returnsEveryExitStatus) {
    for (const int status : {0, 1, 2, 3, 15, 64, 126, 127, 128, 143, 255}) {
        EXPECT_EQ(run({"exit", std::to_string(status)}).exitCode, status);
    }
}

TEST_F(ProcessRunnerContractTest, returnsTheNumberOfTheSignalThatEndedTheEngine) {
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGABRT, SIGKILL, SIGSEGV, SIGPIPE, SIGTERM, SIGUSR1, 64}) {
        EXPECT_EQ(run({"die", std::to_string(signal)}).exitCode, signal);
    }
}

TEST_F(ProcessRunnerContractTest, returnsTheSignalOfACrash) {
    EXPECT_EQ(run({"crash"}).exitCode, SIGSEGV);
}

TEST_F(ProcessRunnerContractTest, returnsEmptyOutputsOfASilentEngine) {
    const Result result = run({"exit", "0"});
    EXPECT_EQ(result.standardOutput, "");
    EXPECT_EQ(result.standardError, "");
}

TEST_F(ProcessRunnerContractTest, keepsTheOutputsApart) {
    const Result output = run({"write-output", "5"});
    EXPECT_EQ(output.standardOutput, "abcde");
    EXPECT_EQ(output.standardError, "");
    const Result error = run({"write-error", "5"});
    EXPECT_EQ(error.standardOutput, "");
    EXPECT_EQ(error.standardError, "abcde");
}

TEST_F(ProcessRunnerContractTest, returnsEveryByteValueUnchanged) {
    std::string garbage;
    for (int value = 255; value >= 0; --value) {
        garbage += static_cast<char>(value);
    }
    const Result result = run({"write-garbage"});
    EXPECT_EQ(result.standardOutput, garbage);
    EXPECT_EQ(result.standardError, garbage);
}

TEST_F(ProcessRunnerContractTest, returnsOutputsFarBeyondAnyBuffer) {
    constexpr std::size_t count = 26 * 1000 * 1000;
    const Result result = run({"write-both", std::to_string(count)});
    // Compared without the matcher's own output, which would print both texts.
    EXPECT_TRUE(result.standardOutput == alphabet(count));
    EXPECT_TRUE(result.standardError == alphabet(count));
}

TEST_F(ProcessRunnerContractTest, returnsTheOutputOfAnEngineThatFails) {
    const ScopedEnvironment choice("AMBREL_TEST_MISBEHAVIOR", "did-not-unlock");
    const Result result = run({"inspect", "/a package", "--recovery-key", "--credential-stdin"}, "key");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.standardError, "The credential did not unlock this backup.\n");
}

TEST_F(ProcessRunnerContractTest, passesTheArgumentsVerbatim) {
    const ScopedEnvironment choice("AMBREL_TEST_MISBEHAVIOR", "print-arguments");
    const Result result = run({"export", "", "/a path/with  blanks", "\"'`$HOME;&|*?[]{}~\\", "tab\tline\nfeed", "--",
                               "-", "caf\xC3\xA9", "not UTF-8: \xFF\xFE", "%s%n"});
    EXPECT_THAT(valuesOf(result.standardOutput, "argument"),
                ElementsAre("export", "", "/a path/with  blanks", "\"'`$HOME;&|*?[]{}~\\x5c", "tab\\x09line\\x0afeed",
                            "--", "-", "caf\\xc3\\xa9", "not UTF-8: \\xff\\xfe", "%s%n"));
}

TEST_F(ProcessRunnerContractTest, passesNoArgumentIfThereIsNone) {
    const ScopedEnvironment choice("AMBREL_TEST_MISBEHAVIOR", "print-arguments");
    EXPECT_EQ(run({}).standardOutput, "");
}

TEST_F(ProcessRunnerContractTest, passesManyAndLongArguments) {
    const ScopedEnvironment choice("AMBREL_TEST_MISBEHAVIOR", "print-arguments");
    std::vector<std::string> arguments(3000, "argument");
    arguments.push_back(std::string(100000, 'x'));
    EXPECT_EQ(valuesOf(run(arguments).standardOutput, "argument"), arguments);
}

TEST_F(ProcessRunnerContractTest, startsTheEngineUnderItsPath) {
    EXPECT_EQ(run({"print-program-name"}).standardOutput, "program " + escaped(misbehavingEngine().string()) + "\n");
}

TEST_F(ProcessRunnerContractTest, passesTheEnvironmentUnchanged) {
    const ScopedEnvironment added("AMBREL_TEST_ADDED", "with = and  blanks");
    const ScopedEnvironment empty("AMBREL_TEST_EMPTY", "");
    std::vector<std::string> expected;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        expected.push_back(escaped(*entry));
    }
    EXPECT_EQ(valuesOf(run({"print-environment"}).standardOutput, "environment"), expected);
}

TEST_F(ProcessRunnerContractTest, passesTheWorkingDirectory) {
    const ScopedWorkingDirectory elsewhere(directory_.path());
    EXPECT_EQ(run({"print-working-directory"}).standardOutput,
              "directory " + escaped(directory_.path().string()) + "\n");
}

TEST_F(ProcessRunnerContractTest, findsAnEngineGivenByARelativePathFromAnywhere) {
    fs::create_symlink(misbehavingEngine(), directory_ / "engine");
    std::optional<AmbrelRecoveryProcessRunner> runner;
    {
        const ScopedWorkingDirectory there(directory_.path());
        runner.emplace("./engine");
    }
    EXPECT_EQ(runner->run({"exit", "5"}, std::nullopt, patience).exitCode, 5);
}

TEST_F(ProcessRunnerContractTest, runsAScriptWithAnInterpreter) {
    const fs::path script = directory_ / "a script";
    TestFiles::write(script, "#!/bin/sh\nread -r credential\necho \"$#:$2:$credential\"\nexit 9\n", 0755);
    const Result result = AmbrelRecoveryProcessRunner(script).run({"one", "t w o"}, bytesOf("pass word"), patience);
    EXPECT_EQ(result.exitCode, 9);
    EXPECT_EQ(result.standardOutput, "2:t w o:pass word\n");
}

TEST_F(ProcessRunnerContractTest, canBeUsedAgainAfterEveryOutcome) {
    EXPECT_EQ(run({"exit", "1"}).exitCode, 1);
    EXPECT_EQ(errorOfRun({"wait"}, std::nullopt, 0), Error::timedOut);
    EXPECT_EQ(errorOfRun({"close-input"}, std::string(1U << 20U, 'x')), Error::launchFailed);
    EXPECT_EQ(run({"exit", "2"}).exitCode, 2);
}

TEST_F(ProcessRunnerContractTest, namesEveryPrivateDirectoryWithAFreshRandomIdentifier) {
    std::set<std::string> seen;
    for (int count = 0; count < 10; ++count) {
        const std::string line = valuesOf(run({"print-output-files"}).standardOutput, "directory").front();
        const std::string path = line.substr(std::string_view("0700 ").size());
        EXPECT_THAT(path, testing::MatchesRegex(temporary_.string() +
                                                "/com\\.ambrel\\.recovery-output\\.[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}"
                                                "-[89AB][0-9A-F]{3}-[0-9A-F]{12}"));
        seen.insert(path);
    }
    EXPECT_EQ(seen.size(), 10U);
}

TEST_F(ProcessRunnerContractTest, usesTheCommonTemporaryDirectoryIfNoneIsConfigured) {
    for (const std::optional<std::string>& value : {std::optional<std::string>(), std::optional<std::string>("")}) {
        const ScopedEnvironment unconfigured("TMPDIR", value);
        const std::string line = valuesOf(run({"print-output-files"}).standardOutput, "directory").front();
        EXPECT_THAT(line, StartsWith("0700 /tmp/com.ambrel.recovery-output."));
        EXPECT_FALSE(fs::exists(line.substr(std::string_view("0700 ").size())));
    }
}

TEST_F(ProcessRunnerContractTest, endsWithTheEngineAndNotWithAWaitSlice) {
    // A measure of time on purpose: twenty runs take a tenth of a second here, and two seconds at the very least where
    // each of them sleeps through a whole slice of a tenth of a second.
    constexpr int runs = 20;
    const auto start = std::chrono::steady_clock::now();
    for (int count = 0; count < runs; ++count) {
        EXPECT_EQ(run({"exit", "0"}).exitCode, 0);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, runs * std::chrono::milliseconds(100));
}
