#include "Common/DescriptorIO.h"
#include "Engine/CommandLine.h"
#include "Engine/Engine.h"
#include "FolderWatch.h"
#include "StandInEngineTest.h"
#include "Support/ChildProcess.h"
#include "Support/TestFiles.h"

#include <array>
#include <csignal>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace {

class StoppingTest : public StandInEngineTest {
protected:
    StoppingTest() : package_(folder_ / "P.ambrel") {
        const CommitRecord record = TestPackage::record({package_.item("a.jpg", std::string(3'000'000, 'a'))});
        arguments_ =
            exportArguments(package_.path(), package_.publish(record).hexadecimal().substr(0, 12), passphrase());
        guard(package_.path());
    }

    // An export that cannot end before its report is read.
    Program::Setup setup(std::function<void()> inChild = [] {}) const {
        return {.input = "correct horse\n", .inChild = std::move(inChild), .hasBlockedOutput = true};
    }

    TestPackage package_;
    std::vector<std::string> arguments_;
};

} // namespace

TEST_F(StoppingTest, aStoppedExportEndsByTheSignalAndLeavesNothingBehind) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        FolderWatch watch(folder_.path());
        Program program(STAND_IN_ENGINE, arguments_, setup());
        watch.waitFor(".partial");
        program.kill(signal);
        const ProgramResult result = program.wait();
        EXPECT_EQ(signal, result.signal);
        EXPECT_EQ("", result.error);
        expectOnly({"P.ambrel"});
    }
}

TEST_F(StoppingTest, aKilledExportLeavesNoDestination) {
    FolderWatch watch(folder_.path());
    Program program(STAND_IN_ENGINE, arguments_, setup());
    watch.waitFor(".partial");
    program.kill(SIGKILL);
    EXPECT_EQ(SIGKILL, program.wait().signal);
    EXPECT_FALSE(std::filesystem::exists(destination()));
}

TEST_F(StoppingTest, theNextExportRemovesWhatAKilledOneLeft) {
    FolderWatch watch(folder_.path());
    Program program(STAND_IN_ENGINE, arguments_, setup());
    watch.waitFor(".partial");
    program.kill(SIGKILL);
    program.wait();
    EXPECT_EQ(0, Program::run(STAND_IN_ENGINE, arguments_, setup()).status);
    expectOnly({"P.ambrel", "Recovered"});
}

TEST_F(StoppingTest, theNextExportLeavesARunningOneAlone) {
    FolderWatch watch(folder_.path());
    Program living(STAND_IN_ENGINE, arguments_, setup());
    watch.waitFor(".partial");
    std::vector<std::string> others = arguments_;
    others[5] = folder_ / "Other";
    EXPECT_EQ(0, Program::run(STAND_IN_ENGINE, others, {.input = "correct horse\n"}).status);
    EXPECT_EQ(0, living.wait().status);
    expectOnly({"P.ambrel", "Recovered", "Other"});
}

TEST_F(StoppingTest, theNextExportLeavesEverythingElseAlone) {
    const std::string number(24, 'a');
    const std::vector<std::string> names = {".ambrel-recovery-.partial", ".ambrel-recovery-" + number + "b.partial",
                                            ".ambrel-recovery-" + std::string(24, 'g') + ".partial",
                                            ".ambrel-recovery-" + number + ".partial.old", number + ".partial"};
    for (const std::string& name : names) {
        std::filesystem::create_directory(folder_ / name);
    }
    // The right names, but no folders.
    const std::string file = ".ambrel-recovery-" + number + ".partial";
    TestFiles::write(folder_ / file, "keep");
    const std::string link = ".ambrel-recovery-" + std::string(24, 'b') + ".partial";
    std::filesystem::create_directory_symlink(folder_ / names[0], folder_ / link);
    EXPECT_EQ(0, Program::run(STAND_IN_ENGINE, arguments_, setup()).status);
    std::vector<std::string> expected = names;
    expected.insert(expected.end(), {"P.ambrel", "Recovered", file, link});
    expectOnly(expected);
}

TEST_F(StoppingTest, theNextExportLeavesFoldersOfOtherUsersAlone) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can be two users";
    }
    const std::string left = ".ambrel-recovery-" + std::string(24, 'a') + ".partial";
    std::filesystem::create_directory(folder_ / left);
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
    const Program::Setup asNobody = {.input = "correct horse\n", .inChild = ChildProcess::dropPrivileges};
    EXPECT_EQ(0, Program::run(STAND_IN_ENGINE, arguments_, asNobody).status);
    expectOnly({"P.ambrel", "Recovered", left});
}

TEST_F(StoppingTest, aStopSignalTakesEffectEvenIfNobodyReadsTheReport) {
    FolderWatch watch(folder_.path());
    Program program(STAND_IN_ENGINE, arguments_, setup());
    watch.waitFor(".partial");
    // Its report is never read here: it ends because of the signals alone. One that arrives just before the engine
    // begins to wait would not wake it, so they are repeated until it has ended.
    for (siginfo_t ended = {}; ended.si_pid == 0;) {
        program.kill(SIGTERM);
        ASSERT_EQ(0, ::waitid(P_PID, static_cast<id_t>(program.pid()), &ended, WEXITED | WNOWAIT | WNOHANG));
    }
    EXPECT_EQ(SIGTERM, program.wait().signal);
    expectOnly({"P.ambrel"});
}

TEST_F(StoppingTest, anEngineThatWaitsForItsCredentialStops) {
    Program program(STAND_IN_ENGINE, inspectArguments(package_.path(), passphrase()),
                    {.input = "correct", .keepsInputOpen = true});
    program.kill(SIGTERM);
    EXPECT_EQ(SIGTERM, program.wait().signal);
}

// The run would end by the signal, which means that nothing was exported.
TEST_F(StoppingTest, aRequestAfterAnExportIsCompleteIsTooLate) {
    const CommandLine line = CommandLine::parse(arguments_).value();
    EXPECT_EQ("", ChildProcess::outcome([&] {
                  const Credential credential = {line.factor, SecretBytes::copyOf(bytesOf(TestPackage::passphrase))};
                  Engine::exportSnapshot(line, credential, [](std::string_view) {});
                  std::raise(SIGTERM);
                  return std::string();
              }));
    expectOnly({"P.ambrel", "Recovered"});
}

TEST_F(StoppingTest, anIgnoredSignalStaysIgnored) {
    FolderWatch watch(folder_.path());
    Program program(STAND_IN_ENGINE, arguments_, setup([] { std::signal(SIGHUP, SIG_IGN); }));
    watch.waitFor(".partial");
    program.kill(SIGHUP);
    EXPECT_EQ(0, program.wait().status);
    expectOnly({"P.ambrel", "Recovered"});
}

TEST_F(StoppingTest, anExportEndsWithItsParent) {
    // The report goes into a pipe of this process that is full, so that the parent's end changes nothing there.
    std::array<int, 2> ends{};
    ASSERT_EQ(0, ::pipe2(ends.data(), O_CLOEXEC));
    const UniqueDescriptor readEnd(ends[0]);
    UniqueDescriptor writeEnd(ends[1]);
    const std::string filling(static_cast<std::size_t>(::fcntl(ends[1], F_SETPIPE_SZ, 4096)), ' ');
    ASSERT_TRUE(DescriptorIO::writeFully(writeEnd.get(), bytesOf(filling)));
    ASSERT_EQ(0, ::prctl(PR_SET_CHILD_SUBREAPER, 1));
    FolderWatch watch(folder_.path());
    const pid_t parent = ::fork();
    ASSERT_GE(parent, 0);
    if (parent == 0) {
        const int output = writeEnd.get();
        const Program program(STAND_IN_ENGINE, arguments_,
                              {.input = "correct horse\n", .inChild = [=] { ::dup2(output, STDOUT_FILENO); }});
        for (;;) {
            ::pause();
        }
    }
    writeEnd = UniqueDescriptor();
    watch.waitFor(".partial");
    ASSERT_EQ(0, ::kill(parent, SIGKILL));
    ASSERT_EQ(parent, ::waitpid(parent, nullptr, 0));
    std::array<std::uint8_t, 4096> buffer{};
    while (DescriptorIO::readFully(readEnd.get(), buffer).value_or(0) > 0) {
    }
    // The engine is this process's child now.
    int status = 0;
    ASSERT_GT(::waitpid(-1, &status, 0), 0);
    ASSERT_EQ(0, ::prctl(PR_SET_CHILD_SUBREAPER, 0));
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << status;
    expectOnly({"P.ambrel"});
}
