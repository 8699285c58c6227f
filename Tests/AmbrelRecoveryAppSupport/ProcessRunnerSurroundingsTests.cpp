// Runs where the system is short of something: disk, permission, memory, a home.

#include "ProcessRunnerTest.h"
#include "Support/ChildProcess.h"
#include "Support/MisbehavingEngine.h"
#include "Support/TestFiles.h"

#include <fstream>
#include <functional>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr const char* notAllowed = "not allowed";

class ProcessRunnerSurroundingsTest : public ProcessRunnerTest {
protected:
    /// Calls the body in a process of its own with a temporary directory on a disk of its own, made with the options.
    std::string outcomeOnDisk(const std::string& options, const std::function<std::string()>& body) const {
        return ChildProcess::outcome([&]() -> std::string {
            if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
                mount("none", temporary_.c_str(), "tmpfs", 0, options.c_str()) != 0) {
                return notAllowed;
            }
            return body();
        });
    }

    std::string nameOfError(const std::vector<std::string>& arguments) {
        const std::optional<Error> error = errorOfRun(arguments, "credential");
        return std::string(error ? nameOf(*error) : "none");
    }

    std::string remains() const { return TestFiles::names(temporary_).empty() ? "" : ", something is left"; }
};

/// The most memory that this process has held since the last call, in bytes.
std::size_t peakMemory() {
    std::ifstream status("/proc/self/status");
    std::size_t kibibytes = 0;
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            kibibytes = std::stoul(line.substr(std::string_view("VmHWM:").size()));
        }
    }
    std::ofstream("/proc/self/clear_refs") << "5";
    return kibibytes * 1024;
}

} // namespace

TEST_F(ProcessRunnerSurroundingsTest, aDiskWithoutRoomForTheFilesMakesTheOutputUnavailable) {
    // The root of the disk takes one place, the directory and the two files one each.
    for (int places = 1; places <= 4; ++places) {
        const std::string outcome = outcomeOnDisk("nr_inodes=" + std::to_string(places),
                                                  [this] { return nameOfError({"echo-input"}) + remains(); });
        if (outcome == notAllowed) {
            GTEST_SKIP() << "this system does not let the test mount a disk";
        }
        EXPECT_EQ(outcome, places < 4 ? "temporaryOutputUnavailable" : "none") << places;
    }
}

TEST_F(ProcessRunnerSurroundingsTest, whatFitsOnAFullDiskIsReturnedAndItsSpaceIsFreed) {
    const std::string outcome = outcomeOnDisk("size=1m", [this] {
        const Result result = run({"write-output", "3000000"}, "credential");
        // Everything that the full disk held is free again.
        const bool again = run({"write-output", "1000000"}).standardOutput.size() == 1000000;
        return std::to_string(result.standardOutput.size()) + (again ? "" : ", the disk is still full") + remains();
    });
    if (outcome == notAllowed) {
        GTEST_SKIP() << "this system does not let the test mount a disk";
    }
    EXPECT_EQ(outcome, std::to_string(1 << 20));
}

TEST_F(ProcessRunnerSurroundingsTest, aReadOnlyDiskMakesTheOutputUnavailable) {
    const std::string outcome = outcomeOnDisk("ro", [this] { return nameOfError({"echo-input"}); });
    if (outcome == notAllowed) {
        GTEST_SKIP() << "this system does not let the test mount a disk";
    }
    EXPECT_EQ(outcome, "temporaryOutputUnavailable");
}

TEST_F(ProcessRunnerSurroundingsTest, noWritableHomeIsNeeded) {
    for (const char* const home : {"/missing", "/proc", ""}) {
        const ScopedEnvironment configured("HOME", home);
        EXPECT_EQ(run({"echo-input"}, "credential").standardOutput, echoOf("credential\n")) << home;
    }
}

TEST_F(ProcessRunnerSurroundingsTest, aRunNeedsLittleMoreMemoryThanItsOutput) {
    constexpr std::size_t mebibyte = 1U << 20U;
    constexpr std::size_t size = 300 * mebibyte;
    const std::string outcome = ChildProcess::outcome([&]() -> std::string {
        run({"write-output", "1"});
        peakMemory();
        const std::size_t before = peakMemory();
        const std::size_t kept = run({"write-output", std::to_string(size)}).standardOutput.size();
        const std::size_t forAll = peakMemory() - before;
        std::string findings;
        findings += kept == size ? "" : "not everything was kept; ";
        findings += forAll < size + size / 4 ? "" : "too much memory: " + std::to_string(forAll);
        return findings;
    });
    EXPECT_EQ(outcome, "");
}
