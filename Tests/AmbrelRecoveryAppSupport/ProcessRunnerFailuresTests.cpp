// Runs that cannot begin: the engine, the temporary directory, descriptors.

#include "AmbrelPlatform/UniqueDescriptor.h"
#include "ProcessRunnerTest.h"
#include "Support/ChildProcess.h"
#include "Support/MisbehavingEngine.h"
#include "Support/OpenDescriptors.h"
#include "Support/TestFiles.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace {

using ProcessRunnerFailuresTest = ProcessRunnerTest;

/// Lets the process open no descriptor above `limit` until it is destroyed.
class DescriptorLimit {
public:
    explicit DescriptorLimit(rlim_t limit) {
        getrlimit(RLIMIT_NOFILE, &previous_);
        const rlimit lowered{limit, previous_.rlim_max};
        setrlimit(RLIMIT_NOFILE, &lowered);
    }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;
    ~DescriptorLimit() { setrlimit(RLIMIT_NOFILE, &previous_); }

private:
    rlimit previous_{};
};

} // namespace

TEST_F(ProcessRunnerFailuresTest, withoutAnExecutableFileTheExecutableIsUnavailable) {
    TestFiles::write(directory_ / "plain", "#!/bin/sh\n", 0644);
    TestFiles::write(directory_ / "no-permission", "#!/bin/sh\n", 0000);
    fs::create_directory(directory_ / "directory");
    fs::create_symlink("nowhere", directory_ / "dangling");
    fs::create_symlink("plain", directory_ / "link-to-plain");
    fs::create_symlink("loop", directory_ / "loop");
    for (const char* const path : {"missing", "plain", "no-permission", "directory", "dangling", "link-to-plain",
                                   "loop", "plain/below", "missing/below"}) {
        EXPECT_EQ(errorOfRunning(directory_ / path), Error::executableUnavailable) << path;
        EXPECT_EQ(errorOfRunning(directory_ / path, "credential"), Error::executableUnavailable) << path;
    }
}

TEST_F(ProcessRunnerFailuresTest, anEngineThatVanishesAfterTheFirstRunIsUnavailable) {
    const fs::path engine = directory_ / "engine";
    fs::copy_file(misbehavingEngine(), engine);
    AmbrelRecoveryProcessRunner runner(engine);
    EXPECT_EQ(runner.run({"exit", "0"}, std::nullopt, patience).exitCode, 0);
    fs::remove(engine);
    EXPECT_EQ(errorOf([&] { runner.run({"exit", "0"}, std::nullopt, patience); }), Error::executableUnavailable);
}

TEST_F(ProcessRunnerFailuresTest, theExecutableIsCheckedBeforeAnythingIsMade) {
    const ScopedEnvironment missing("TMPDIR", (directory_ / "missing").string());
    EXPECT_EQ(errorOfRunning(directory_ / "no engine"), Error::executableUnavailable);
}

TEST_F(ProcessRunnerFailuresTest, withoutATemporaryDirectoryTheOutputIsUnavailable) {
    TestFiles::write(directory_ / "file", "");
    fs::create_symlink("nowhere", directory_ / "dangling");
    for (const fs::path& path :
         {directory_ / "missing", directory_ / "missing" / "below", directory_ / "file", directory_ / "dangling",
          fs::path("/proc/self/fdinfo"), directory_ / std::string(300, 'x'), fs::path("/" + std::string(5000, 'x'))}) {
        const ScopedEnvironment configured("TMPDIR", path.string());
        EXPECT_EQ(errorOfRun({"exit", "0"}), Error::temporaryOutputUnavailable) << path;
        EXPECT_EQ(errorOfRun({"exit", "0"}, "credential"), Error::temporaryOutputUnavailable) << path;
    }
    EXPECT_FALSE(fs::exists(directory_ / "missing")) << "missing parents are not made";
}

TEST_F(ProcessRunnerFailuresTest, anExecutableThatTheSystemRefusesFailsTheLaunch) {
    const std::string program = TestFiles::read(misbehavingEngine());
    TestFiles::write(directory_ / "text", "exit 0\n", 0755);
    TestFiles::write(directory_ / "empty", "", 0755);
    TestFiles::write(directory_ / "missing-interpreter", "#!/no/such/interpreter\n", 0755);
    TestFiles::write(directory_ / "directory-as-interpreter", "#!/\n", 0755);
    TestFiles::write(directory_ / "truncated", std::string_view(program).substr(0, 40), 0755);
    std::string foreign = program;
    foreign[18] = 0x7F; // The processor's number in the header of the file.
    foreign[19] = 0x7F;
    TestFiles::write(directory_ / "foreign", foreign, 0755);
    for (const char* const file :
         {"text", "empty", "missing-interpreter", "directory-as-interpreter", "truncated", "foreign"}) {
        EXPECT_EQ(errorOfRunning(directory_ / file), Error::launchFailed) << file;
        EXPECT_EQ(errorOfRunning(directory_ / file, "credential"), Error::launchFailed) << file;
    }
}

TEST_F(ProcessRunnerFailuresTest, anExecutableThatIsBeingWrittenFailsTheLaunch) {
    fs::copy_file(misbehavingEngine(), directory_ / "engine");
    const UniqueDescriptor writer(open((directory_ / "engine").c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_EQ(errorOfRunning(directory_ / "engine"), Error::launchFailed);
}

TEST_F(ProcessRunnerFailuresTest, argumentsThatTheSystemCannotPassFailTheLaunch) {
    EXPECT_EQ(errorOfRun({"exit", "0", std::string(4 * 1024 * 1024, 'x')}), Error::launchFailed);
    EXPECT_EQ(errorOfRun({"exit", "0", std::string(4 * 1024 * 1024, 'x')}, "credential"), Error::launchFailed);
}

TEST_F(ProcessRunnerFailuresTest, anArgumentThatWouldArriveTruncatedFailsTheLaunch) {
    using namespace std::string_literals;
    EXPECT_EQ(errorOfRun({"exit", "0", "snapshot\0 of another name"s}), Error::launchFailed);
}

TEST_F(ProcessRunnerFailuresTest, aFailedLaunchLeavesTheRunnerFree) {
    TestFiles::write(directory_ / "engine", "exit 0\n", 0755);
    AmbrelRecoveryProcessRunner runner(directory_ / "engine");
    for (int count = 0; count < 3; ++count) {
        EXPECT_EQ(errorOf([&] { runner.run({}, bytesOf("credential"), patience); }), Error::launchFailed);
    }
    fs::remove(directory_ / "engine");
    fs::create_symlink(misbehavingEngine(), directory_ / "engine");
    EXPECT_EQ(runner.run({"exit", "6"}, bytesOf("credential"), patience).exitCode, 6);
}

TEST_F(ProcessRunnerFailuresTest, everyShortageOfDescriptorsEndsInAnErrorAndLeavesNothingBehind) {
    const std::string outcome = ChildProcess::outcome([&] {
        // Whatever a library or a sanitizer opens for its first use is not what this is about.
        errorOfRun({"echo-input"}, "credential");
        const std::map<int, std::string> before = openDescriptors();
        std::string findings;
        std::set<std::string_view> outcomes;
        for (rlim_t limit = 3; limit < 20; ++limit) {
            std::optional<Error> error;
            {
                const DescriptorLimit shortage(limit);
                error = errorOfRun({"echo-input"}, "credential");
            }
            outcomes.insert(error ? nameOf(*error) : "none");
            if (!privateDirectories().empty()) {
                findings += "a private directory is left with " + std::to_string(limit) + " descriptors\n";
                fs::remove_all(temporary_ / *privateDirectories().begin());
            }
            findings += openDescriptors() == before ? "" : "a descriptor is left\n";
            findings += waitpid(-1, nullptr, WNOHANG) == -1 ? "" : "a process is left\n";
        }
        const std::set<std::string_view> expected = {"temporaryOutputUnavailable", "launchFailed", "none"};
        for (const std::string_view seen : outcomes) {
            findings += expected.contains(seen) ? "" : "an unexpected outcome: " + std::string(seen) + "\n";
        }
        return findings + (outcomes.size() == expected.size() ? "" : "not every outcome was seen\n");
    });
    EXPECT_EQ(outcome, "");
}
