// Who may see the outputs, whatever the umask, as the engine itself finds them.

#include "ProcessRunnerTest.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

using testing::ElementsAre;
using testing::StartsWith;

namespace {

using ProcessRunnerPermissionsTest = ProcessRunnerTest;

class ScopedUmask {
public:
    explicit ScopedUmask(mode_t mask) : previous_(umask(mask)) {}
    ScopedUmask(const ScopedUmask&) = delete;
    ScopedUmask& operator=(const ScopedUmask&) = delete;
    ~ScopedUmask() { umask(previous_); }

private:
    mode_t previous_;
};

} // namespace

TEST_F(ProcessRunnerPermissionsTest, holdUnderEveryUmask) {
    for (const mode_t mask : {0000U, 0002U, 0022U, 0027U, 0077U, 0177U, 0277U, 0377U, 0477U, 0700U, 0777U}) {
        std::string report;
        {
            const ScopedUmask scoped(mask);
            report = run({"print-output-files"}, "credential").standardOutput;
        }
        EXPECT_THAT(valuesOf(report, "directory"), ElementsAre(StartsWith("0700 "))) << mask;
        EXPECT_THAT(valuesOf(report, "entry"), ElementsAre("0600 stderr", "0600 stdout")) << mask;
    }
}

TEST_F(ProcessRunnerPermissionsTest, leaveTheUmaskToTheEngine) {
    const ScopedUmask scoped(0137);
    EXPECT_THAT(valuesOf(run({"print-output-files"}).standardOutput, "umask"), ElementsAre("0137"));
    EXPECT_EQ(umask(0137), 0137U);
}
