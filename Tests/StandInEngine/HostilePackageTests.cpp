#include "Common/ByteWriter.h"
#include "Format/PackageLayout.h"
#include "StandInEngineTest.h"
#include "Support/ChildProcess.h"
#include "Support/TestFiles.h"

#include <limits>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

constexpr const char* invalid = "The chosen item is invalid or unsupported.";
constexpr const char* unavailable = "The backup package is unavailable.";
constexpr const char* integrity = "The backup's integrity verification failed.";

class HostilePackageTest : public StandInEngineTest {
protected:
    HostilePackageTest() : package_(folder_ / "P.ambrel") {}

    // Publishes a record and expects that both commands refuse the package.
    void expectRefused(const CommitRecord& record) { expectRefused(record.encode()); }

    void expectRefused(const Bytes& plaintext) {
        const Identifier commit = package_.writer().addCommit(plaintext);
        package_.writer().publishHead(commit);
        guard(package_.path());
        expectFailure(inspect(package_.path()), 6, integrity);
        expectFailure(exportSnapshot(package_.path(), commit.hexadecimal().substr(0, 12)), 6, integrity);
        expectOnly({"P.ambrel"});
    }

    TestPackage package_;
};

// What stands in a commit before its lists.
void writePlace(ByteWriter& writer) {
    writer.number(std::uint32_t{1});
    writer.number(std::uint32_t{0});
    writer.number(std::int64_t{0});
    writer.number(std::uint64_t{1});
    writer.number(std::uint64_t{1});
}

} // namespace

TEST_F(HostilePackageTest, whatIsNotAPackageIsInvalid) {
    TestFiles::write(folder_ / "file.ambrel", "a file");
    fs::create_directory(folder_ / "empty.ambrel");
    fs::create_directory(folder_ / "other.ambrel");
    TestFiles::write(folder_ / "other.ambrel/header.txt", "another format\nversion: 1\n");
    fs::create_directories(folder_ / "strange.ambrel/header.txt");
    fs::create_directory(folder_ / "pipe.ambrel");
    ASSERT_EQ(0, ::mkfifo((folder_ / "pipe.ambrel/header.txt").c_str(), 0600));
    ASSERT_EQ(0, ::mkfifo((folder_ / "pipe").c_str(), 0600));
    for (const char* name : {"file.ambrel", "empty.ambrel", "other.ambrel", "strange.ambrel", "pipe.ambrel", "pipe"}) {
        expectFailure(inspect(folder_ / name), 4, invalid);
        expectFailure(exportSnapshot(folder_ / name, "code"), 4, invalid);
    }
}

TEST_F(HostilePackageTest, aMissingPackageIsUnavailable) {
    fs::create_directory_symlink(folder_ / "nowhere", folder_ / "dangling.ambrel");
    fs::create_directory_symlink(folder_ / "loop.ambrel", folder_ / "loop.ambrel");
    for (const char* name : {"missing.ambrel", "dangling.ambrel", "loop.ambrel"}) {
        expectFailure(inspect(folder_ / name), 5, unavailable);
        expectFailure(exportSnapshot(folder_ / name, "code"), 5, unavailable);
    }
    expectFailure(inspect(""), 5, unavailable);
}

TEST_F(HostilePackageTest, whatCannotBeReadIsUnavailable) {
    const CommitRecord record = TestPackage::record({package_.item("a.jpg", "a")});
    const Identifier commit = package_.publish(record);
    const fs::path payload = package_.payloadPath(record.items.front().resources.front().payload);
    const Program::Setup ordinaryUser = {.input = "correct horse\n", .inChild = ChildProcess::dropPrivileges};
    fs::permissions(folder_.path(), fs::perms::all);
    for (const fs::path& path : {package_.path(), package_.path() / "header.txt", package_.path() / "keys",
                                 package_.path() / "commits", package_.path() / "heads", package_.commitPath(commit)}) {
        const fs::perms before = fs::status(path).permissions();
        fs::permissions(path, fs::perms::none);
        expectFailure(Program::run(STAND_IN_ENGINE, inspectArguments(package_.path(), passphrase()), ordinaryUser), 5,
                      unavailable);
        fs::permissions(path, before);
    }
    fs::permissions(payload, fs::perms::none);
    const auto document =
        parse(Program::run(STAND_IN_ENGINE, inspectArguments(package_.path(), passphrase()), ordinaryUser));
    EXPECT_EQ(1, std::int64_t(document["snapshots"].at(0)["payloadFileEvidence"]["unreadableFileCount"]));
    const std::string code = commit.hexadecimal().substr(0, 12);
    expectFailure(Program::run(STAND_IN_ENGINE, exportArguments(package_.path(), code, passphrase()), ordinaryUser), 5,
                  unavailable);
    expectOnly({"P.ambrel"});
}

TEST_F(HostilePackageTest, missingPartsAreNoticed) {
    package_.publish(TestPackage::record({package_.item("a.jpg", "a")}));
    for (const char* name : {"keys", "commits", "heads"}) {
        fs::rename(package_.path() / name, folder_ / "aside");
        expectFailure(inspect(package_.path()), 6, integrity);
        fs::rename(folder_ / "aside", package_.path() / name);
    }
    fs::rename(package_.path() / "payloads", folder_ / "aside");
    const auto document = inspection(package_.path());
    EXPECT_EQ(1, std::int64_t(document["snapshots"].at(0)["payloadFileEvidence"]["missingFileCount"]));
}

TEST_F(HostilePackageTest, noLinkIsFollowed) {
    const CommitRecord record = TestPackage::record({package_.item("a.jpg", "a")});
    const Identifier commit = package_.publish(record);
    const auto replaceByLink = [&](const fs::path& path) {
        fs::rename(path, folder_ / "aside");
        fs::create_symlink(folder_ / "aside", path);
    };
    const auto putBack = [&](const fs::path& path) {
        fs::remove(path);
        fs::rename(folder_ / "aside", path);
    };
    for (const fs::path& path : {package_.path() / "keys", package_.path() / "commits", package_.path() / "heads",
                                 package_.commitPath(commit)}) {
        replaceByLink(path);
        expectFailure(inspect(package_.path()), 6, integrity);
        putBack(path);
    }
    for (const fs::path& path :
         {package_.path() / "payloads", package_.payloadPath(record.items.front().resources.front().payload)}) {
        replaceByLink(path);
        const auto document = inspection(package_.path());
        EXPECT_EQ(1, std::int64_t(document["snapshots"].at(0)["payloadFileEvidence"]["mismatchedFileCount"]));
        putBack(path);
    }
    replaceByLink(package_.path() / "header.txt");
    expectFailure(inspect(package_.path()), 4, invalid);
}

TEST_F(HostilePackageTest, namesThatLeadElsewhereAreRefused) {
    for (const std::string& name : {std::string(".."), std::string("."), std::string(), std::string("../a"),
                                    std::string("/etc/a"), std::string("a\0b", 3), std::string(256, 'x')}) {
        TestPackage package(folder_ / "Q.ambrel");
        CommitRecord inFile = TestPackage::record({package.item("a", "a")});
        inFile.items.front().resources.front().fileName = name;
        CommitRecord inAlbum = TestPackage::record({});
        inAlbum.albums = {{std::nullopt, name}};
        CommitRecord inFolder = TestPackage::record({});
        inFolder.folders = {{std::nullopt, name}};
        for (const CommitRecord& record : {inFile, inAlbum, inFolder}) {
            const Identifier commit = package.writer().addCommit(record);
            expectFailure(inspect(package.path()), 6, integrity);
            fs::remove(package.commitPath(commit));
        }
        fs::remove_all(package.path());
    }
}

TEST_F(HostilePackageTest, indexesOutOfRangeAreRefused) {
    const CommitRecord good = TestPackage::record({package_.item("a", "a")});
    std::vector<CommitRecord> records(6, good);
    records[0].memberships = {{0, 0}};
    records[1].albums = {{0, "album"}};
    records[2].albums = {{std::nullopt, "album"}};
    records[2].memberships = {{0, 1}};
    records[3].folders = {{0, "its own parent"}};
    records[4].items.front().resources.front().modifiedNanoseconds = 1'000'000'000;
    records[5].items.front().resources.front().byteCount = std::numeric_limits<std::uint64_t>::max();
    for (const CommitRecord& record : records) {
        const Identifier commit = package_.writer().addCommit(record);
        expectFailure(inspect(package_.path()), 6, integrity);
        fs::remove(package_.commitPath(commit));
    }
}

TEST_F(HostilePackageTest, excessivelyNestedFoldersAreRefused) {
    CommitRecord record = TestPackage::record({});
    record.folders = {{std::nullopt, "x"}};
    for (std::uint32_t index = 0; index < 100; ++index) {
        record.folders.push_back({index, "x"});
    }
    expectRefused(record);
}

TEST_F(HostilePackageTest, countsBeyondTheRecordAreRefused) {
    for (int emptyLists = 0; emptyLists < 5; ++emptyLists) {
        ByteWriter writer;
        writePlace(writer);
        for (int list = 0; list < emptyLists; ++list) {
            writer.number(std::uint32_t{0});
        }
        writer.number(std::numeric_limits<std::uint32_t>::max());
        const Identifier commit = package_.writer().addCommit(writer.bytes());
        expectFailure(inspect(package_.path()), 6, integrity);
        fs::remove(package_.commitPath(commit));
    }
}

TEST_F(HostilePackageTest, aRecordOfAnotherShapeIsRefused) {
    Bytes longer = TestPackage::record({}).encode();
    longer.push_back(0);
    Bytes ofAnotherVersion = TestPackage::record({}).encode();
    ofAnotherVersion.front() = 2;
    for (const Bytes& plaintext : {longer, ofAnotherVersion, Bytes(), Bytes(10'000, 0xFF)}) {
        const Identifier commit = package_.writer().addCommit(plaintext);
        expectFailure(inspect(package_.path()), 6, integrity);
        fs::remove(package_.commitPath(commit));
    }
}

TEST_F(HostilePackageTest, aHistoryThatContradictsItselfIsRefused) {
    CommitRecord record = TestPackage::record({});
    record.parents = {Identifier()};
    record.generation = 2;
    expectRefused(record);
}

TEST_F(HostilePackageTest, aHeadWithoutItsCommitIsRefused) {
    package_.writer().publishHead(Identifier());
    expectFailure(inspect(package_.path()), 6, integrity);
}

TEST_F(HostilePackageTest, sizesThatOverflowAreRefused) {
    CommitRecord record = TestPackage::record({package_.item("a", "a")});
    CommitRecord::Resource resource = record.items.front().resources.front();
    resource.byteCount = PackageLayout::maximumResourceByteCount;
    record.items.front().resources.assign(16, resource);
    expectFailure((package_.publish(record), inspect(package_.path())), 6, integrity);
}

TEST_F(HostilePackageTest, tooManyCommitsAreRefused) {
    for (std::size_t number = 0; number <= PackageLayout::maximumCommitCount; ++number) {
        Identifier name;
        name.bytes[0] = static_cast<std::uint8_t>(number);
        name.bytes[1] = static_cast<std::uint8_t>(number >> 8);
        TestFiles::write(package_.commitPath(name), "");
    }
    expectFailure(inspect(package_.path()), 6, integrity);
}
