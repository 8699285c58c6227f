#include "FolderWatch.h"
#include "StandInEngineTest.h"
#include "Support/ScopedEnvironment.h"
#include "Support/TestFiles.h"

namespace {

class SelfTestTest : public StandInEngineTest {
protected:
    ScopedEnvironment temporaryDirectory_{"TMPDIR", folder_.path().string()};
};

} // namespace

TEST_F(SelfTestTest, passesAndLeavesNothingBehind) {
    const ProgramResult result = Program::run(STAND_IN_ENGINE, {"self-test"}, {});
    EXPECT_EQ(0, result.status) << result.output;
    EXPECT_EQ("", result.error);
    EXPECT_THAT(result.output, testing::HasSubstr("stands in for the product's recovery engine"));
    for (const char* check : {"Argon2id", "XChaCha20-Poly1305", "BLAKE2b", "the exported files are the originals"}) {
        EXPECT_THAT(result.output, testing::HasSubstr(std::string("\npassed: ") + check));
    }
    EXPECT_THAT(result.output, testing::Not(testing::HasSubstr("FAILED")));
    expectOnly({});
}

TEST_F(SelfTestTest, failsWithoutAPlaceForItsPackage) {
    const ScopedEnvironment nowhere("TMPDIR", (folder_ / "nowhere").string());
    const ProgramResult result = Program::run(STAND_IN_ENGINE, {"self-test"}, {});
    EXPECT_EQ(1, result.status);
    EXPECT_THAT(result.output, testing::HasSubstr("\nFAILED: "));
}

TEST_F(SelfTestTest, leavesNothingBehindWhenStopped) {
    FolderWatch watch(folder_.path());
    Program program(STAND_IN_ENGINE, {"self-test"}, {});
    watch.waitFor("");
    program.kill(SIGTERM);
    const ProgramResult result = program.wait();
    // It may have been done before the signal came.
    EXPECT_TRUE(result.signal == SIGTERM || result.status == 0);
    expectOnly({});
}
