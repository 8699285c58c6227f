#include "Engine/CommandLine.h"

#include "StandInEngineTest.h"

namespace {

class CommandLineTest : public StandInEngineTest {};

std::vector<std::string> exportLine() {
    return {"export", "P", "--snapshot", "code", "--destination", "D", "--recovery-key", "--credential-stdin"};
}

} // namespace

TEST_F(CommandLineTest, inspectIsParsed) {
    const auto line = CommandLine::parse({"inspect", "a package", "--backup-passphrase", "--credential-stdin"});
    ASSERT_TRUE(line);
    EXPECT_EQ(CommandLine::Command::inspect, line->command);
    EXPECT_EQ("a package", line->packagePath);
    EXPECT_EQ(Factor::backupPassphrase, line->factor);
}

TEST_F(CommandLineTest, exportIsParsed) {
    const auto line = CommandLine::parse(exportLine());
    ASSERT_TRUE(line);
    EXPECT_EQ(CommandLine::Command::exportSnapshot, line->command);
    EXPECT_EQ("P", line->packagePath);
    EXPECT_EQ("code", line->snapshotCode);
    EXPECT_EQ("D", line->destinationPath);
    EXPECT_EQ(Factor::recoveryKey, line->factor);
}

TEST_F(CommandLineTest, aValueMayLookLikeAnOption) {
    const auto line = CommandLine::parse({"export", "--package", "--snapshot", "--destination", "--destination",
                                          "--snapshot", "--recovery-key", "--credential-stdin"});
    ASSERT_TRUE(line);
    EXPECT_EQ("--package", line->packagePath);
    EXPECT_EQ("--destination", line->snapshotCode);
    EXPECT_EQ("--snapshot", line->destinationPath);
}

TEST_F(CommandLineTest, anExportNeedsEachOfItsArguments) {
    for (std::size_t index = 0; index < exportLine().size(); ++index) {
        std::vector<std::string> arguments = exportLine();
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(index));
        EXPECT_FALSE(CommandLine::parse(arguments)) << "without argument " << index;
    }
}

TEST_F(CommandLineTest, anInvalidCommandLineEndsWithTheUsage) {
    const std::vector<std::vector<std::string>> lines = {
        {},
        {"restore"},
        {"self-test", "now"},
        {"inspect"},
        {"inspect", "P"},
        {"inspect", "P", "--credential-stdin"},
        {"inspect", "P", "--recovery-key"},
        {"inspect", "P", "--recovery-key", "--backup-passphrase", "--credential-stdin"},
        {"inspect", "P", "--recovery-key", "--credential-stdin", "--credential-stdin"},
        {"inspect", "P", "--recovery-key", "--credential-stdin", "--verbose"},
        {"inspect", "P", "--recovery-key", "--credential-stdin", "--snapshot", "code"},
        {"export", "P", "--recovery-key", "--credential-stdin"},
    };
    for (const std::vector<std::string>& arguments : lines) {
        const ProgramResult result = Program::run(STAND_IN_ENGINE, arguments, {});
        EXPECT_EQ(64, result.status) << testing::PrintToString(arguments);
        EXPECT_EQ("", result.output);
        EXPECT_EQ(CommandLine::usage(), result.error);
    }
}

TEST_F(CommandLineTest, helpIsTheUsageAndSaysWhatTheEngineStandsInFor) {
    const ProgramResult result = Program::run(STAND_IN_ENGINE, {"--help"}, {});
    EXPECT_EQ(0, result.status);
    EXPECT_EQ(CommandLine::usage(), result.output);
    EXPECT_THAT(result.output, testing::HasSubstr("stands in for the product's recovery engine"));
    EXPECT_THAT(result.output, testing::HasSubstr("cannot read the product's backups"));
}
