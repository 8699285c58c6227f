#include "FolderWatch.h"
#include "StandInEngineTest.h"
#include "Support/TestFiles.h"

namespace fs = std::filesystem;

namespace {

class SampleBackupTest : public StandInEngineTest {
protected:
    SampleBackupTest() {
        for (const char* name : {"a.jpg", "a.png", "b.jpg", "ü c.jpg", "x/d.jpg", "x/y/e.jpg", "x/y/f.jpg"}) {
            fs::create_directories((pictures() / name).parent_path());
            TestFiles::write(pictures() / name, std::string("content of ") + name);
        }
        guard(pictures());
    }

    fs::path pictures() const { return folder_ / "pictures"; }
    fs::path package() const { return folder_ / "Sample.ambrel"; }

    ProgramResult make(const std::string& kind) const {
        return Program::run(
            MAKE_SAMPLE_BACKUP,
            {"--pictures", pictures(), "--output", package(), "--kind", kind, "--passphrase-stdin", "--fast"},
            {.input = "correct horse\n"});
    }

    // The document of a fresh package of that kind.
    simdjson::dom::element made(const std::string& kind) {
        const ProgramResult result = make(kind);
        EXPECT_EQ(0, result.status) << result.error;
        guard(package());
        return inspection(package());
    }

    // The snapshots' evidence of missing or mismatched files, in order.
    static std::vector<std::int64_t> counts(const simdjson::dom::element& document, std::string_view key) {
        std::vector<std::int64_t> values;
        for (const simdjson::dom::element snapshot : document["snapshots"].get_array()) {
            values.push_back(snapshot["payloadFileEvidence"][key]);
        }
        return values;
    }

    static std::string valueOf(const std::string& output, const std::string& name) {
        const std::size_t start = output.find(name + ": ") + name.size() + 2;
        return output.substr(start, output.find('\n', start) - start);
    }
};

} // namespace

TEST_F(SampleBackupTest, printsThreeLinesThatOpenThePackage) {
    const ProgramResult result =
        Program::run(MAKE_SAMPLE_BACKUP, {"--pictures", pictures(), "--output", package(), "--fast"}, {});
    ASSERT_EQ(0, result.status) << result.error;
    EXPECT_THAT(result.output,
                testing::MatchesRegex("package: [^\n]*\npassphrase: [a-z-]*\nrecovery key: [0-9A-Z-]*\n"));
    EXPECT_EQ(package().string(), valueOf(result.output, "package"));
    EXPECT_EQ(0, inspect(package(), passphrase(valueOf(result.output, "passphrase"))).status);
    EXPECT_EQ(0, inspect(package(), recoveryKey(valueOf(result.output, "recovery key"))).status);
}

TEST_F(SampleBackupTest, anOrdinaryOneHasSnapshotsOverTimeAndTheLastHoldsEverything) {
    const auto document = made("ordinary");
    EXPECT_EQ("single-branch", std::string_view(document["branchDisposition"]));
    const simdjson::dom::array snapshots = document["snapshots"];
    ASSERT_EQ(4U, snapshots.size());
    for (std::size_t index = 1; index < snapshots.size(); ++index) {
        EXPECT_LT(std::int64_t(snapshots.at(index - 1)["createdAtUTCMilliseconds"]),
                  std::int64_t(snapshots.at(index)["createdAtUTCMilliseconds"]));
    }
    EXPECT_EQ("{\"items\":6,\"resources\":7,\"folders\":1,\"albums\":2,\"memberships\":3,\"tombstones\":0}",
              simdjson::minify(snapshots.at(3)["counts"]));
    EXPECT_EQ(1, std::int64_t(snapshots.at(1)["counts"]["tombstones"]));
    EXPECT_EQ(0, std::int64_t(snapshots.at(2)["counts"]["tombstones"]));
    EXPECT_TRUE(bool(snapshots.at(3)["retainedTip"]));
    EXPECT_EQ((std::vector<std::int64_t>{0, 0, 0, 0}), counts(document, "missingFileCount"));
    ASSERT_EQ(0, exportSnapshot(package(), codeOf(package())).status);
    EXPECT_EQ(FolderDigest::contents(pictures()), FolderDigest::contents(destination()));
    EXPECT_EQ(fs::last_write_time(pictures() / "x/y/e.jpg"), fs::last_write_time(destination() / "x/y/e.jpg"));
}

TEST_F(SampleBackupTest, aForkedOneHasTwoTips) {
    const auto document = made("forked");
    EXPECT_EQ("unresolved-fork", std::string_view(document["branchDisposition"]));
    EXPECT_EQ(2U, document["preservedBranches"].get_array().size());
    EXPECT_EQ(2, std::int64_t(document["authenticatedHeadCount"]));
    EXPECT_EQ(4U, document["snapshots"].get_array().size());
}

TEST_F(SampleBackupTest, onlyTheLastSnapshotMissesAFile) {
    EXPECT_EQ((std::vector<std::int64_t>{0, 0, 0, 1}), counts(made("missing-payload"), "missingFileCount"));
    expectFailure(exportSnapshot(package(), codeOf(package())), 6, "integrity verification failed");
    EXPECT_EQ(0, exportSnapshot(package(), codeOf(package(), 2)).status);
}

TEST_F(SampleBackupTest, onlyTheLastSnapshotHasADamagedFile) {
    EXPECT_EQ((std::vector<std::int64_t>{0, 0, 0, 1}), counts(made("damaged-payload"), "mismatchedFileCount"));
    expectFailure(exportSnapshot(package(), codeOf(package())), 6, "integrity verification failed");
    EXPECT_EQ(0, exportSnapshot(package(), codeOf(package(), 2)).status);
}

TEST_F(SampleBackupTest, oneOfAnotherVersionIsRefused) {
    EXPECT_EQ(0, make("unsupported-version").status);
    expectFailure(inspect(package()), 4, "invalid or unsupported");
}

TEST_F(SampleBackupTest, onePictureIsEnough) {
    fs::create_directory(folder_ / "one");
    TestFiles::write(folder_ / "one/only", "");
    for (const char* kind : {"ordinary", "forked"}) {
        fs::remove_all(package());
        ASSERT_EQ(0, Program::run(MAKE_SAMPLE_BACKUP,
                                  {"--pictures", folder_ / "one", "--output", package(), "--kind", kind,
                                   "--passphrase-stdin", "--fast"},
                                  {.input = "correct horse\n"})
                         .status);
        EXPECT_EQ(4U, inspection(package())["snapshots"].get_array().size());
    }
}

TEST_F(SampleBackupTest, theHeaderSaysWhoWroteIt) {
    ASSERT_EQ(0, make("ordinary").status);
    EXPECT_THAT(TestFiles::read(package() / "header.txt"), testing::HasSubstr("stand-in recovery engine"));
}

TEST_F(SampleBackupTest, noPictureIsReadableInThePackage) {
    ASSERT_EQ(0, make("ordinary").status);
    for (const auto& [path, content] : FolderDigest::contents(package())) {
        EXPECT_EQ(std::string::npos, content.find("content of")) << path;
        EXPECT_EQ(std::string::npos, content.find(".jpg")) << path;
    }
}

TEST_F(SampleBackupTest, nothingIsOverwritten) {
    TestFiles::write(package(), "mine");
    const ProgramResult result = make("ordinary");
    EXPECT_EQ(7, result.status);
    EXPECT_EQ("make-sample-backup: The destination already exists.\n", result.error);
    EXPECT_EQ("mine", TestFiles::read(package()));
    expectOnly({"Sample.ambrel", "pictures"});
}

TEST_F(SampleBackupTest, aFolderWithoutPicturesIsRefused) {
    fs::create_directory(folder_ / "empty");
    for (const char* name : {"empty", "missing"}) {
        const ProgramResult result =
            Program::run(MAKE_SAMPLE_BACKUP, {"--pictures", folder_ / name, "--output", package(), "--fast"}, {});
        EXPECT_EQ(1, result.status);
        EXPECT_THAT(result.error, testing::StartsWith("make-sample-backup: The folder of pictures "));
        EXPECT_EQ("", result.output);
    }
    expectOnly({"empty", "pictures"});
}

TEST_F(SampleBackupTest, leavesNothingBehindWhenStopped) {
    FolderWatch watch(folder_.path());
    Program program(MAKE_SAMPLE_BACKUP, {"--pictures", pictures(), "--output", package(), "--fast"},
                    {.hasBlockedOutput = true});
    watch.waitFor(".partial");
    program.kill(SIGTERM);
    EXPECT_EQ(SIGTERM, program.wait().signal);
    expectOnly({"pictures"});
}

TEST_F(SampleBackupTest, countsBackFromTheGivenTime) {
    const ProgramResult result = Program::run(
        MAKE_SAMPLE_BACKUP,
        {"--pictures", pictures(), "--output", package(), "--passphrase-stdin", "--fast", "--now", "1767225600"},
        {.input = "correct horse\n"});
    ASSERT_EQ(0, result.status) << result.error;
    guard(package());
    const auto document = inspection(package());
    constexpr std::int64_t day = 86'400'000;
    EXPECT_EQ(1'767'225'600'000 - 1 * day, std::int64_t(document["snapshots"].at(3)["createdAtUTCMilliseconds"]));
    EXPECT_EQ(1'767'225'600'000 - 120 * day, std::int64_t(document["snapshots"].at(0)["createdAtUTCMilliseconds"]));
}

TEST_F(SampleBackupTest, anInvalidCommandLineEndsWithTheUsage) {
    const std::string input = pictures();
    const std::string output = package();
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {},
             {"--pictures", input},
             {"--output", output},
             {"--pictures", input, "--output", folder_ / "Sample"},
             {"--pictures", input, "--output", ".ambrel"},
             {"--pictures", input, "--output", output, "--kind", "strange"},
             {"--pictures", input, "--output", output, "--kind"},
             {"--pictures", input, "--output", output, "--fast", "--fast"},
             {"--pictures", input, "--output", output, "more"},
             {"--pictures", input, "--output", output, "--now"},
             {"--pictures", input, "--output", output, "--now", "-1"},
             {"--pictures", input, "--output", output, "--now", "1x"},
             {"--pictures", input, "--output", output, "--now", "12345678901"},
         }) {
        const ProgramResult result = Program::run(MAKE_SAMPLE_BACKUP, arguments, {});
        EXPECT_EQ(64, result.status) << testing::PrintToString(arguments);
        EXPECT_THAT(result.error, testing::StartsWith("Usage: make-sample-backup "));
    }
    expectOnly({"pictures"});
}
