#include "FolderWatch.h"
#include "Output/ExclusiveRename.h"
#include "StandInEngineTest.h"
#include "Support/ChildProcess.h"
#include "Support/TestFiles.h"

#include <cerrno>

#include <fcntl.h>

namespace fs = std::filesystem;

namespace {

class DestinationTest : public StandInEngineTest {
protected:
    DestinationTest() : package_(folder_ / "P.ambrel") {
        code_ = package_.publish(TestPackage::record({package_.item("a.jpg", "content")}));
        guard(package_.path());
    }

    std::vector<std::string> arguments(const std::string& destinationPath) const {
        std::vector<std::string> result = exportArguments(package_.path(), code(), passphrase());
        result[5] = destinationPath;
        return result;
    }

    ProgramResult exportTo(
        const std::string& destinationPath, std::function<void()> inChild = [] {}) const {
        return Program::run(STAND_IN_ENGINE, arguments(destinationPath),
                            {.input = "correct horse\n", .inChild = std::move(inChild)});
    }

    void expectExists(const std::string& destinationPath) const {
        const auto before = FolderDigest::of(folder_.path());
        expectFailure(exportTo(destinationPath), 7, "The destination already exists.");
        EXPECT_EQ(before, FolderDigest::of(folder_.path()));
    }

    void expectUnavailable(
        const std::string& destinationPath, std::function<void()> inChild = [] {}) const {
        const auto before = FolderDigest::of(folder_.path());
        expectFailure(exportTo(destinationPath, std::move(inChild)), 8, "The destination is unavailable.");
        EXPECT_EQ(before, FolderDigest::of(folder_.path()));
    }

    std::string code() const { return code_.hexadecimal().substr(0, 12); }

    TestPackage package_;
    Identifier code_;
};

} // namespace

TEST_F(DestinationTest, whateverExistsIsKept) {
    fs::create_directory(folder_ / "empty");
    fs::create_directory(folder_ / "full");
    TestFiles::write(folder_ / "full/file", "keep");
    TestFiles::write(folder_ / "file", "keep");
    fs::create_symlink(folder_ / "nowhere", folder_ / "dangling");
    fs::create_directory_symlink(folder_ / "full", folder_ / "link");
    for (const char* name : {"empty", "empty/", "full", "file", "dangling", "link", "full/.", "full/.."}) {
        expectExists((folder_ / name).string());
    }
    expectExists("/");
}

TEST_F(DestinationTest, insideThePackageIsUnavailable) {
    fs::create_directory_symlink(package_.path() / "payloads", folder_ / "link");
    for (const char* name : {"P.ambrel/Recovered", "P.ambrel/payloads/Recovered", "link/Recovered",
                             "P.ambrel/../P.ambrel/Recovered", "P.ambrel/commits/"}) {
        const std::string path = folder_ / name;
        const ProgramResult result = exportTo(path);
        EXPECT_TRUE(result.status == 8 || path.ends_with("commits/")) << path << result.error;
        EXPECT_TRUE(result.status == 7 || !path.ends_with("commits/")) << path << result.error;
    }
}

TEST_F(DestinationTest, aFolderThatCannotBeUsedIsUnavailable) {
    TestFiles::write(folder_ / "file", "");
    fs::create_directory_symlink(folder_ / "nowhere", folder_ / "dangling");
    for (const char* name : {"missing/Recovered", "file/Recovered", "dangling/Recovered"}) {
        expectUnavailable((folder_ / name).string());
    }
    expectUnavailable("");
    expectUnavailable((folder_ / std::string(300, 'x')).string());
}

TEST_F(DestinationTest, aFolderWithoutPermissionIsUnavailable) {
    fs::create_directory(folder_ / "locked");
    fs::permissions(folder_ / "locked", fs::perms(0555));
    expectUnavailable((folder_ / "locked/Recovered").string(), ChildProcess::dropPrivileges);
    fs::permissions(folder_ / "locked", fs::perms(0));
    expectUnavailable((folder_ / "locked/Recovered").string(), ChildProcess::dropPrivileges);
    fs::permissions(folder_ / "locked", fs::perms(0755));
}

TEST_F(DestinationTest, aRelativePathStartsAtTheWorkingDirectory) {
    const std::string directory = folder_.path();
    const auto enter = [&] { ASSERT_EQ(0, ::chdir(directory.c_str())); };
    EXPECT_EQ(0, exportTo("Here", enter).status);
    EXPECT_EQ(0, exportTo("./There/", enter).status);
    EXPECT_EQ("content", TestFiles::read(folder_ / "Here/a.jpg"));
    EXPECT_EQ("content", TestFiles::read(folder_ / "There/a.jpg"));
}

TEST_F(DestinationTest, whatAppearsDuringTheExportIsKept) {
    for (const bool isFolder : {true, false}) {
        fs::remove_all(destination());
        FolderWatch watch(folder_.path());
        // The engine cannot end before its report is read, so what is made now is there before the last step.
        Program program(STAND_IN_ENGINE, arguments(destination()),
                        {.input = "correct horse\n", .hasBlockedOutput = true});
        watch.waitFor(".partial");
        if (isFolder) {
            fs::create_directory(destination());
        } else {
            TestFiles::write(destination(), "keep");
        }
        const ProgramResult result = program.wait();
        EXPECT_EQ(7, result.status);
        EXPECT_THAT(result.error, testing::HasSubstr("The destination already exists."));
        EXPECT_TRUE(isFolder ? fs::is_empty(destination()) : TestFiles::read(destination()) == "keep");
        expectOnly({"P.ambrel", "Recovered"});
    }
}

TEST_F(DestinationTest, twoExportsToTheSamePlaceNeverMix) {
    FolderWatch watch(folder_.path());
    const Program::Setup setup = {.input = "correct horse\n", .hasBlockedOutput = true};
    Program first(STAND_IN_ENGINE, arguments(destination()), setup);
    watch.waitFor(".partial");
    Program second(STAND_IN_ENGINE, arguments(destination()), setup);
    watch.waitFor(".partial");
    EXPECT_EQ(0, first.wait().status);
    EXPECT_EQ(7, second.wait().status);
    EXPECT_EQ("content", TestFiles::read(destination() / "a.jpg"));
    expectOnly({"P.ambrel", "Recovered"});
}

TEST_F(DestinationTest, theFallbackForExclusiveRenamesNeverReplacesAnything) {
    const UniqueDescriptor parent(::open(folder_.path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const auto rename = [&](const char* to) {
        return ExclusiveRename::renameOntoReservedName(parent.get(), "from", to);
    };
    fs::create_directory(folder_ / "from");
    TestFiles::write(folder_ / "from/file", "new");
    fs::create_directory(folder_ / "taken");
    TestFiles::write(folder_ / "a file", "keep");
    fs::create_symlink("nowhere", folder_ / "a link");
    for (const char* name : {"taken", "a file", "a link"}) {
        EXPECT_EQ(EEXIST, rename(name)) << name;
    }
    EXPECT_TRUE(fs::is_empty(folder_ / "taken"));
    EXPECT_EQ(0, rename("free"));
    EXPECT_EQ("new", TestFiles::read(folder_ / "free/file"));
    EXPECT_EQ(ENOENT, rename("nothing to rename"));
    expectOnly({"P.ambrel", "taken", "a file", "a link", "free"});
}
