#include "StandInEngineTest.h"
#include "Support/TestFiles.h"

#include <sys/stat.h>

namespace {

using Contents = std::map<std::string, std::string>;

class ExportTest : public StandInEngineTest {
protected:
    ExportTest() : package_(folder_ / "P.ambrel") {}

    // Publishes the record and exports it.
    ProgramResult exportRecord(const CommitRecord& record) {
        const std::string code = package_.publish(record).hexadecimal().substr(0, 12);
        guard(package_.path());
        return exportSnapshot(package_.path(), code);
    }

    Contents exported(const CommitRecord& record) {
        const ProgramResult result = exportRecord(record);
        EXPECT_EQ(0, result.status) << result.error;
        return FolderDigest::contents(destination());
    }

    TestPackage package_;
};

} // namespace

TEST_F(ExportTest, originalsOfEverySizeAreTheSame) {
    CommitRecord record;
    Contents expected;
    for (const std::size_t size : {0U, 1U, 65'535U, 65'536U, 65'537U, 131'072U, 400'000U}) {
        const std::string name = std::to_string(size) + ".bin";
        std::string content(size, '\0');
        for (std::size_t index = 0; index < size; ++index) {
            content[index] = static_cast<char>(index * 7 + index / 251);
        }
        record.items.push_back(package_.item(name, content));
        expected[name] = content;
    }
    EXPECT_EQ(expected, exported(TestPackage::record(record.items)));
}

TEST_F(ExportTest, theReportSaysWhatWasWritten) {
    CommitRecord record = TestPackage::record({package_.item("a.jpg", "a"), package_.item("b.jpg", "b")});
    record.items.front().resources.push_back(package_.item("a.mov", "video").resources.front());
    const ProgramResult result = exportRecord(record);
    const std::string code = codeOf(package_.path());
    EXPECT_EQ(0, result.status);
    EXPECT_EQ("{\"schemaIdentifier\":\"com.ambrel.recovery.cli-export.v1\",\"status\":\"complete\","
              "\"selectedSnapshotCode\":\"" +
                  code +
                  "\",\"totalItemCount\":2,\"recoveredItemCount\":2,\"totalResourceCount\":3,"
                  "\"recoveredResourceCount\":3,\"failedResourceCount\":0}\n",
              result.output);
    expectOnly({"P.ambrel", "Recovered"});
}

TEST_F(ExportTest, theRecoveryKeyExportsTheSame) {
    package_.publish(TestPackage::record({package_.item("a.jpg", "a")}));
    const std::string code = codeOf(package_.path());
    EXPECT_EQ(0, exportSnapshot(package_.path(), code, recoveryKey(package_.recoveryKey())).status);
    EXPECT_EQ((Contents{{"a.jpg", "a"}}), FolderDigest::contents(destination()));
}

TEST_F(ExportTest, timesOfModificationAreRestored) {
    CommitRecord record = TestPackage::record({package_.item("old.jpg", "a"), package_.item("new.jpg", "b")});
    record.items[0].resources[0].modifiedSeconds = -86'400;
    record.items[0].resources[0].modifiedNanoseconds = 5;
    ASSERT_EQ(0, exportRecord(record).status);
    struct stat status = {};
    ASSERT_EQ(0, ::stat((destination() / "old.jpg").c_str(), &status));
    EXPECT_EQ(-86'400, status.st_mtim.tv_sec);
    ASSERT_EQ(0, ::stat((destination() / "new.jpg").c_str(), &status));
    EXPECT_EQ(1'600'000'000, status.st_mtim.tv_sec);
    EXPECT_EQ(123'000'000, status.st_mtim.tv_nsec);
}

TEST_F(ExportTest, foldersAndAlbumsAreRestored) {
    CommitRecord record = TestPackage::record(
        {package_.item("top.jpg", "t"), package_.item("n.jpg", "n"), package_.item("Żółty dom \U0001F600.jpg", "z")});
    record.folders = {{std::nullopt, "Trips"}, {0, "2023"}, {std::nullopt, "Empty"}};
    record.albums = {{1, "Norway – Å"}, {std::nullopt, "Trips"}, {2, "No picture"}};
    record.memberships = {{0, 1}, {1, 2}, {2, 1}};
    EXPECT_EQ((Contents{{"top.jpg", "t"}, {"Trips/2023/Norway – Å/n.jpg", "n"}, {"Trips/Żółty dom 😀.jpg", "z"}}),
              exported(record));
    EXPECT_TRUE(std::filesystem::is_directory(destination() / "Empty/No picture"));
}

TEST_F(ExportTest, clashingNamesAllSurvive) {
    CommitRecord record =
        TestPackage::record({package_.item("a.jpg", "1"), package_.item("a (1).jpg", "2"), package_.item("a.jpg", "3"),
                             package_.item("a.jpg", "4"), package_.item("Album", "5")});
    record.albums = {{std::nullopt, "Album"}};
    EXPECT_EQ(
        (Contents{{"a.jpg", "1"}, {"a (1).jpg", "2"}, {"a (2).jpg", "3"}, {"a (3).jpg", "4"}, {"Album (2)", "5"}}),
        exported(record));
}

TEST_F(ExportTest, namesThatAreNotUnicodeAreKept) {
    EXPECT_EQ((Contents{{"caf\xE9.jpg", "latin"}, {"\xFF", "byte"}}),
              exported(TestPackage::record({package_.item("caf\xE9.jpg", "latin"), package_.item("\xFF", "byte")})));
}

TEST_F(ExportTest, anOldSnapshotCanBeChosen) {
    CommitRecord record = TestPackage::record({package_.item("old.jpg", "old")});
    const Identifier old = package_.writer().addCommit(record);
    record.items = {package_.item("new.jpg", "new")};
    record.parents = {old};
    record.generation = 2;
    package_.publish(record);
    ASSERT_EQ(0, exportSnapshot(package_.path(), old.hexadecimal().substr(0, 12)).status);
    EXPECT_EQ((Contents{{"old.jpg", "old"}}), FolderDigest::contents(destination()));
}

TEST_F(ExportTest, aSnapshotWithoutItemsIsAnEmptyFolder) {
    EXPECT_EQ(Contents(), exported(TestPackage::record({})));
    EXPECT_TRUE(std::filesystem::is_directory(destination()));
}

TEST_F(ExportTest, anUnknownSnapshotIsRefused) {
    package_.publish(TestPackage::record({}));
    for (const std::string& code : {std::string(), std::string("000000000000"), codeOf(package_.path()) + "0",
                                    codeOf(package_.path()).substr(1), std::string("../x")}) {
        expectFailure(exportSnapshot(package_.path(), code), 1, "This backup has no snapshot with that code.");
    }
    expectOnly({"P.ambrel"});
}

TEST_F(ExportTest, anIncompleteSnapshotLeavesNothingBehind) {
    const CommitRecord record = TestPackage::record({package_.item("a.jpg", "a"), package_.item("b.jpg", "b")});
    const std::string code = package_.publish(record).hexadecimal().substr(0, 12);
    const auto payload = package_.payloadPath(record.items[1].resources.front().payload);
    const std::string content = TestFiles::read(payload);
    std::filesystem::remove(payload);
    expectFailure(exportSnapshot(package_.path(), code), 6, "integrity verification failed");
    std::string changed = content;
    changed.back() ^= 1;
    TestFiles::write(payload, changed);
    expectFailure(exportSnapshot(package_.path(), code), 6, "integrity verification failed");
    expectOnly({"P.ambrel"});
    TestFiles::write(payload, content);
    EXPECT_EQ(0, exportSnapshot(package_.path(), code).status);
}

TEST_F(ExportTest, aReportThatCannotBePrintedLeavesNothingBehind) {
    const std::string code = package_.publish(TestPackage::record({package_.item("a.jpg", "a")})).hexadecimal();
    Program program(STAND_IN_ENGINE, exportArguments(package_.path(), code.substr(0, 12), passphrase()),
                    {.input = "correct horse\n", .inChild = [] { ::close(STDOUT_FILENO); }});
    expectFailure(program.wait(), 1, "The report could not be printed.");
    expectOnly({"P.ambrel"});
}
