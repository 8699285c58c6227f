#include "StandInEngineTest.h"
#include "Support/TestFiles.h"

namespace {

using Element = simdjson::dom::element;

class InspectionTest : public StandInEngineTest {
protected:
    InspectionTest() : package_(folder_ / "P.ambrel") {}

    Element inspectGuarded() {
        guard(package_.path());
        return inspection(package_.path());
    }

    static std::int64_t number(const Element& element, std::string_view key) { return element[key]; }
    static std::string text(const Element& element, std::string_view key) {
        return std::string(std::string_view(element[key]));
    }

    TestPackage package_;
};

CommitRecord after(CommitRecord record, const Identifier& parent, std::uint64_t generation) {
    record.parents = {parent};
    record.generation = generation;
    return record;
}

} // namespace

TEST_F(InspectionTest, reportsEverythingAboutASnapshot) {
    CommitRecord record = TestPackage::record({package_.item("a.jpg", "first"), package_.item("b.jpg", "")});
    record.items.front().resources.push_back(package_.item("a.mov", std::string(100'000, 'v')).resources.front());
    record.writerEpoch = 3;
    record.generation = 1;
    record.folders = {{std::nullopt, "Trips"}};
    record.albums = {{0, "Norway"}, {std::nullopt, "Best"}};
    record.memberships = {{0, 0}, {1, 0}, {1, 1}};
    record.tombstones.resize(4);
    const std::string code = package_.publish(record).hexadecimal().substr(0, 12);
    const Element document = inspectGuarded();
    EXPECT_EQ("com.ambrel.recovery.cli-inspection.v1", text(document, "schemaIdentifier"));
    EXPECT_EQ("com.ambrel.backup.v1", text(document, "formatIdentifier"));
    EXPECT_EQ(1, number(document, "formatVersion"));
    EXPECT_EQ("single-branch", text(document, "branchDisposition"));
    EXPECT_EQ(code, text(document, "canonicalTipSelectionCode"));
    EXPECT_EQ(1, number(document, "authenticatedCommitCount"));
    EXPECT_EQ(1, number(document, "authenticatedHeadCount"));
    EXPECT_EQ(3, number(document, "maximumWriterEpoch"));
    EXPECT_EQ("[{\"tipSelectionCode\":\"" + code + "\",\"snapshotSelectionCodes\":[\"" + code + "\"]}]",
              simdjson::minify(document["preservedBranches"]));
    const simdjson::dom::array snapshots = document["snapshots"];
    ASSERT_EQ(1U, snapshots.size());
    const std::uintmax_t encrypted = 3 * 24 + 4 * 17 + 5 + 0 + 100'000;
    EXPECT_EQ("{\"selectionCode\":\"" + code +
                  "\",\"createdAtUTCMilliseconds\":1700000000000,\"writerEpoch\":3,\"generation\":1,"
                  "\"retainedTip\":true,\"counts\":{\"items\":2,\"resources\":3,\"folders\":1,\"albums\":2,"
                  "\"memberships\":3,\"tombstones\":4},\"logicalPlaintextByteCount\":100005,"
                  "\"encryptedPayloadByteCount\":" +
                  std::to_string(encrypted) +
                  ",\"payloadFileEvidence\":{\"complete\":true,\"requiredFileCount\":3,\"matchingFileCount\":3,"
                  "\"missingFileCount\":0,\"mismatchedFileCount\":0,\"unreadableFileCount\":0}}",
              simdjson::minify(snapshots.at(0)));
}

TEST_F(InspectionTest, equalOriginalsAreOnePayloadFile) {
    package_.publish(TestPackage::record({package_.item("a.jpg", "same"), package_.item("b.jpg", "same")}));
    const Element snapshot = inspectGuarded()["snapshots"].at(0);
    EXPECT_EQ(8, number(snapshot, "logicalPlaintextByteCount"));
    EXPECT_EQ(24 + 4 + 17, number(snapshot, "encryptedPayloadByteCount"));
    EXPECT_EQ(1, number(snapshot["payloadFileEvidence"], "requiredFileCount"));
}

TEST_F(InspectionTest, aForkHasTwoTipsAndTwoBranches) {
    const CommitRecord record = TestPackage::record({package_.item("a.jpg", "a")});
    const Identifier first = package_.writer().addCommit(record);
    CommitRecord left = after(record, first, 2);
    left.writerEpoch = 7;
    const Identifier leftTip = package_.publish(left);
    const Identifier rightTip = package_.publish(after(record, first, 2));
    const Element document = inspectGuarded();
    EXPECT_EQ("unresolved-fork", text(document, "branchDisposition"));
    EXPECT_TRUE(document["canonicalTipSelectionCode"].is_null());
    EXPECT_EQ(3, number(document, "authenticatedCommitCount"));
    EXPECT_EQ(2, number(document, "authenticatedHeadCount"));
    EXPECT_EQ(7, number(document, "maximumWriterEpoch"));
    for (const Element branch : document["preservedBranches"].get_array()) {
        const std::string tip = text(branch, "tipSelectionCode");
        EXPECT_THAT((std::vector{leftTip.hexadecimal(), rightTip.hexadecimal()}),
                    testing::Contains(testing::StartsWith(tip)));
        EXPECT_EQ("[\"" + tip + "\",\"" + first.hexadecimal().substr(0, 12) + "\"]",
                  simdjson::minify(branch["snapshotSelectionCodes"]));
    }
    EXPECT_EQ(2U, document["preservedBranches"].get_array().size());
}

TEST_F(InspectionTest, saysThatThereIsNoPublishedHead) {
    package_.writer().addCommit(TestPackage::record({package_.item("a.jpg", "a")}));
    const Element document = inspectGuarded();
    EXPECT_EQ("no-published-head", text(document, "branchDisposition"));
    EXPECT_EQ(0, number(document, "authenticatedHeadCount"));
    EXPECT_TRUE(bool(document["snapshots"].at(0)["retainedTip"]));
}

TEST_F(InspectionTest, anEmptyPackageHasNoSnapshots) {
    const Element document = inspectGuarded();
    EXPECT_EQ("no-published-head", text(document, "branchDisposition"));
    EXPECT_EQ(0U, document["snapshots"].get_array().size());
}

TEST_F(InspectionTest, missingAndDamagedPayloadFilesAreCounted) {
    const CommitRecord record =
        TestPackage::record({package_.item("a.jpg", "a"), package_.item("b.jpg", "b"), package_.item("c.jpg", "c")});
    const Identifier old = package_.writer().addCommit(TestPackage::record({record.items[2]}));
    package_.publish(after(record, old, 2));
    std::filesystem::remove(package_.payloadPath(record.items[0].resources.front().payload));
    const auto damaged = package_.payloadPath(record.items[1].resources.front().payload);
    std::filesystem::resize_file(damaged, std::filesystem::file_size(damaged) - 1);
    const Element snapshots = inspectGuarded()["snapshots"];
    EXPECT_EQ("{\"complete\":true,\"requiredFileCount\":1,\"matchingFileCount\":1,\"missingFileCount\":0,"
              "\"mismatchedFileCount\":0,\"unreadableFileCount\":0}",
              simdjson::minify(snapshots.at(0)["payloadFileEvidence"]));
    EXPECT_EQ("{\"complete\":false,\"requiredFileCount\":3,\"matchingFileCount\":1,\"missingFileCount\":1,"
              "\"mismatchedFileCount\":1,\"unreadableFileCount\":0}",
              simdjson::minify(snapshots.at(1)["payloadFileEvidence"]));
}

TEST_F(InspectionTest, aRecordThatLiesAboutASizeDoesNotMatch) {
    CommitRecord record = TestPackage::record({package_.item("a.jpg", "four")});
    record.items.front().resources.front().byteCount = 5;
    package_.publish(record);
    EXPECT_EQ(1, number(inspectGuarded()["snapshots"].at(0)["payloadFileEvidence"], "mismatchedFileCount"));
}

TEST_F(InspectionTest, aPackageIsReadThroughALinkAndWithATrailingSlash) {
    package_.publish(TestPackage::record({}));
    std::filesystem::create_directory_symlink(package_.path(), folder_ / "Link.ambrel");
    EXPECT_EQ(0, inspect(folder_ / "Link.ambrel").status);
    EXPECT_EQ(0, inspect(package_.path().string() + "/").status);
}

TEST_F(InspectionTest, foreignFilesAreIgnored) {
    package_.publish(TestPackage::record({}));
    for (const char* name : {".DS_Store", "commits/.DS_Store", "heads/note.txt", "payloads/x"}) {
        TestFiles::write(package_.path() / name, "not a record");
    }
    EXPECT_EQ(1, number(inspectGuarded(), "authenticatedCommitCount"));
}
