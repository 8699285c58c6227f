// What an application that was killed leaves: its engine ends, and the next start removes its directory and no other.

#include "AmbrelRecoveryAppSupport/PrivateOutputDirectory.h"
#include "ProcessRunnerTest.h"
#include "Support/ChildProcess.h"
#include "Support/TestFiles.h"

#include <csignal>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

class AbandonedOutputsTest : public ConversingProcessRunnerTest {
protected:
    /// Makes a directory as a killed application would have left it.
    fs::path abandon(const std::string& name, mode_t permissions = 0700) const {
        const fs::path path = temporary_ / name;
        fs::create_directory(path);
        TestFiles::write(path / "stdout", "half a document");
        TestFiles::write(path / "stderr", "");
        EXPECT_EQ(chmod(path.c_str(), permissions), 0);
        return path;
    }

    void removeRest() const {
        for (const std::string& name : TestFiles::names(temporary_)) {
            if (fs::is_directory(fs::symlink_status(temporary_ / name))) {
                fs::permissions(temporary_ / name, fs::perms::owner_all);
            }
            fs::remove_all(temporary_ / name);
        }
    }

    static constexpr const char* ordinaryName = "com.ambrel.recovery-output.01234567-89AB-4CDE-8F01-23456789ABCD";
};

} // namespace

TEST_F(AbandonedOutputsTest, aKilledApplicationTakesItsEngineWithItAndTheNextStartRemovesTheDirectory) {
    // The engine becomes this process's child when the application ends. Not every first process of a system reaps
    // those that it is left with.
    ASSERT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    const pid_t application = fork();
    ASSERT_GE(application, 0);
    if (application == 0) {
        errorOfRun({"exit-when-asked", "0"}, "credential");
        _exit(EXIT_FAILURE);
    }
    const pid_t engine = awaitStart();
    awaitLog("input ");
    EXPECT_EQ(privateDirectories().size(), 1U);
    PrivateOutputDirectory::removeAbandoned();
    EXPECT_EQ(privateDirectories().size(), 1U) << "its application lives";

    kill(application, SIGKILL);
    EXPECT_EQ(waitpid(application, nullptr, 0), application);
    awaitLog("asked to end");
    EXPECT_EQ(waitpid(engine, nullptr, 0), engine);
    ASSERT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 0), 0);
    EXPECT_EQ(privateDirectories().size(), 1U);
    PrivateOutputDirectory::removeAbandoned();
    EXPECT_EQ(TestFiles::names(temporary_), std::set<std::string>());
}

TEST_F(AbandonedOutputsTest, areRemovedWithEverythingInThem) {
    const fs::path path = abandon(ordinaryName);
    fs::create_directories(path / "folder" / "within");
    TestFiles::write(path / "folder" / "within" / "file", "left");
    chmod((path / "folder").c_str(), 0);
    abandon("com.ambrel.recovery-output.FFFFFFFF-89AB-4CDE-8F01-23456789ABCD");
    PrivateOutputDirectory::removeAbandoned();
    EXPECT_EQ(TestFiles::names(temporary_), std::set<std::string>());
}

TEST_F(AbandonedOutputsTest, directoriesOfRunningApplicationsStay) {
    {
        const PrivateOutputDirectory living;
        abandon(ordinaryName);
        PrivateOutputDirectory::removeAbandoned();
        EXPECT_EQ(privateDirectories(), std::set<std::string>{living.path().filename().string()});
        EXPECT_TRUE(living.createFile("stdout"));
    }
    EXPECT_EQ(privateDirectories(), std::set<std::string>());
}

TEST_F(AbandonedOutputsTest, whatOnlyResemblesThemStays) {
    const std::set<std::string> names = {
        "com.ambrel.recovery-output.",
        "com.ambrel.recovery-output.01234567-89ab-4cde-8f01-23456789abcd",
        "com.ambrel.recovery-output.01234567-89AB-4CDE-8F01-23456789ABCD.old",
        "com.ambrel.recovery-output.01234567-89AB-4CDE-8F01-23456789ABC",
        "com.ambrel.recovery-output.../../../photos",
        "a com.ambrel.recovery-output.01234567-89AB-4CDE-8F01-23456789ABCD",
    };
    for (const std::string& name : names) {
        if (name.find('/') == std::string::npos) {
            abandon(name);
        }
    }
    abandon("com.ambrel.recovery-output.00000000-89AB-4CDE-8F01-23456789ABCD", 0755);
    abandon("com.ambrel.recovery-output.11111111-89AB-4CDE-8F01-23456789ABCD", 0500);
    TestFiles::write(temporary_ / "com.ambrel.recovery-output.22222222-89AB-4CDE-8F01-23456789ABCD", "a file", 0700);
    ASSERT_EQ(mkfifo((temporary_ / "com.ambrel.recovery-output.33333333-89AB-4CDE-8F01-23456789ABCD").c_str(), 0700),
              0);
    const std::set<std::string> before = TestFiles::names(temporary_);
    PrivateOutputDirectory::removeAbandoned();
    EXPECT_EQ(TestFiles::names(temporary_), before);
    removeRest();
}

TEST_F(AbandonedOutputsTest, linksAreNeitherFollowedNorRemoved) {
    const fs::path photos = directory_ / "photos";
    fs::create_directory(photos);
    TestFiles::write(photos / "stdout", "precious");
    chmod(photos.c_str(), 0700);
    fs::create_symlink(photos, temporary_ / ordinaryName);
    const fs::path real = abandon("com.ambrel.recovery-output.FFFFFFFF-89AB-4CDE-8F01-23456789ABCD");
    fs::create_symlink(photos, real / "folder");
    fs::create_symlink(photos / "stdout", real / "file");
    PrivateOutputDirectory::removeAbandoned();
    EXPECT_EQ(TestFiles::names(temporary_), std::set<std::string>{ordinaryName});
    EXPECT_EQ(TestFiles::read(photos / "stdout"), "precious");
    removeRest();
}

TEST_F(AbandonedOutputsTest, directoriesOfOtherUsersStay) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can make a directory of another user";
    }
    const fs::path path = abandon(ordinaryName);
    ASSERT_EQ(chown(path.c_str(), 65534, 65534), 0);
    PrivateOutputDirectory::removeAbandoned();
    EXPECT_EQ(TestFiles::names(path), (std::set<std::string>{"stderr", "stdout"}));
    removeRest();
}

TEST_F(AbandonedOutputsTest, anUnreadableTemporaryDirectoryIsNoFailure) {
    for (const fs::path& path : {directory_ / "missing", fs::path("/dev/null"), fs::path("/proc/self/fdinfo/x")}) {
        const ScopedEnvironment configured("TMPDIR", path.string());
        EXPECT_NO_THROW(PrivateOutputDirectory::removeAbandoned()) << path;
    }
}

TEST_F(AbandonedOutputsTest, theWorkOfOneStartIsBounded) {
    constexpr std::size_t most = 1000;
    for (std::size_t count = 0; count < most + 5; ++count) {
        std::string digits = std::to_string(10000000 + count);
        const fs::path path = temporary_ / ("com.ambrel.recovery-output." + digits + "-89AB-4CDE-8F01-23456789ABCD");
        ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    }
    PrivateOutputDirectory::removeAbandoned();
    EXPECT_EQ(privateDirectories().size(), 5U);
    PrivateOutputDirectory::removeAbandoned();
    EXPECT_EQ(privateDirectories().size(), 0U);
}
