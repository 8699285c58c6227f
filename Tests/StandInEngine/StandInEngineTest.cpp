#include "StandInEngineTest.h"

#include "Support/TestFiles.h"

#include <algorithm>
#include <set>

void StandInEngineTest::TearDown() {
    for (const auto& [folder, digest] : guarded_) {
        EXPECT_EQ(digest, FolderDigest::of(folder)) << folder << " was changed";
    }
}

StandInEngineTest::Secret StandInEngineTest::passphrase(std::string_view text) {
    return {"--backup-passphrase", std::string(text)};
}

StandInEngineTest::Secret StandInEngineTest::recoveryKey(std::string_view text) {
    return {"--recovery-key", std::string(text)};
}

ProgramResult StandInEngineTest::inspect(const std::filesystem::path& package, const Secret& secret) const {
    return Program::run(STAND_IN_ENGINE, inspectArguments(package, secret), {.input = secret.text + "\n"});
}

ProgramResult StandInEngineTest::exportSnapshot(const std::filesystem::path& package, const std::string& code,
                                                const Secret& secret) const {
    return Program::run(STAND_IN_ENGINE, exportArguments(package, code, secret), {.input = secret.text + "\n"});
}

std::vector<std::string> StandInEngineTest::inspectArguments(const std::filesystem::path& package,
                                                             const Secret& secret) {
    return {"inspect", package, secret.flag, "--credential-stdin"};
}

std::vector<std::string> StandInEngineTest::exportArguments(const std::filesystem::path& package,
                                                            const std::string& code, const Secret& secret) const {
    return {"export", package, "--snapshot", code, "--destination", destination(), secret.flag, "--credential-stdin"};
}

simdjson::dom::element StandInEngineTest::inspection(const std::filesystem::path& package, const Secret& secret) {
    return parse(inspect(package, secret));
}

simdjson::dom::element StandInEngineTest::parse(const ProgramResult& result) {
    EXPECT_EQ(0, result.status) << result.error;
    EXPECT_EQ("", result.error);
    return parser_.parse(result.output);
}

std::string StandInEngineTest::codeOf(const std::filesystem::path& package, std::size_t index) {
    const simdjson::dom::array snapshots = inspection(package)["snapshots"];
    const std::string_view code = snapshots.at(std::min(index, snapshots.size() - 1))["selectionCode"];
    return std::string(code);
}

void StandInEngineTest::expectFailure(const ProgramResult& result, int status, const std::string& sentence) {
    EXPECT_EQ(status, result.status) << result.error;
    EXPECT_EQ(0, result.signal);
    EXPECT_EQ("", result.output);
    EXPECT_THAT(result.error, testing::StartsWith("ambrel-recovery (stand-in engine): "));
    EXPECT_THAT(result.error, testing::HasSubstr(sentence));
    EXPECT_EQ(1, std::ranges::count(result.error, '\n'));
}

void StandInEngineTest::expectOnly(const std::vector<std::string>& names) const {
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()), TestFiles::names(folder_.path()));
}
