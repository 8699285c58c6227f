// Every run of the engine may take half an hour. Nobody waits for it here: the wall clock is set forward.

#include "AmbrelRecoveryApp/Model/RecoveryEngineCommandLine.h"
#include "AmbrelRecoveryApp/Model/RecoveryEngineProgram.h"
#include "AmbrelRecoveryApp/SelfTestMode.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"
#include "Support/MisbehavingEngine.h"
#include "Support/NamedPipe.h"
#include "Support/ScopedEnvironment.h"
#include "Support/TemporaryDirectory.h"
#include "SystemCallFaults.h"

#include <gtest/gtest.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr long halfAnHour = 1800;
/// Half an hour, but for what a busy machine may take for a single look at the clock.
constexpr long almostHalfAnHour = halfAnHour - 60;
constexpr int exitStatus = 3;

/// An engine that runs until its gate opens, and then exits with exitStatus.
class RecoveryTimeoutTest : public testing::Test {
protected:
    using Error = AmbrelRecoveryProcessError;

    RecoveryTimeoutTest() { SystemCallFaults::reset(); }
    ~RecoveryTimeoutTest() override { SystemCallFaults::reset(); }

    /// The next look at the clock while an engine runs shows a time that is so many seconds later. Then the clock is
    /// right again, and the engine may go on.
    void setClockForwardOnce(long seconds) {
        SystemCallFaults::during("poll", [this, seconds] {
            SystemCallFaults::setClockForward(seconds);
            SystemCallFaults::during("poll", [this] {
                SystemCallFaults::setClockForward(0);
                gate_.write(".");
            });
        });
    }

    /// What a run with these arguments throws, or none where it comes to its end.
    std::optional<Error> errorOfRun(const std::vector<std::string>& arguments) {
        constexpr auto factor = AmbrelRecoveryAppFactor::recoveryKey;
        const AmbrelRecoveryCredentialSession session(factor,
                                                      SecretBytes::copyOf(std::as_bytes(std::span("secret", 6))));
        try {
            EXPECT_EQ(engine_.run(arguments, session, factor, {}).exitCode, exitStatus);
        } catch (Error error) {
            return error;
        }
        return std::nullopt;
    }

private:
    const TemporaryDirectory directory_;
    NamedPipe gate_{directory_.path() / "gate"};
    const ScopedEnvironment gateVariable_{"AMBREL_TEST_ENGINE_GATE", gate_.path().string()};
    const ScopedEnvironment misbehaviorVariable_{"AMBREL_TEST_MISBEHAVIOR", "exit 3"};
    const ScopedEnvironment temporaryVariable_{"TMPDIR", directory_.path().string()};
    RecoveryEngineProgram engine_{misbehavingEngine()};
};

const std::vector<std::vector<std::string>> commandLines = {
    RecoveryEngineCommandLine::inspectArguments("/Backup.ambrel", AmbrelRecoveryAppFactor::recoveryKey),
    RecoveryEngineCommandLine::exportArguments("/Backup.ambrel", "code", "/Recovered",
                                               AmbrelRecoveryAppFactor::recoveryKey),
};

} // namespace

TEST_F(RecoveryTimeoutTest, ofAnInspectionAndAnExportIsHalfAnHour) {
    for (const std::vector<std::string>& arguments : commandLines) {
        setClockForwardOnce(almostHalfAnHour);
        EXPECT_EQ(errorOfRun(arguments), std::nullopt) << arguments.front();
        setClockForwardOnce(halfAnHour + 1);
        EXPECT_EQ(errorOfRun(arguments), Error::timedOut) << arguments.front();
        SystemCallFaults::reset();
    }
}

TEST_F(RecoveryTimeoutTest, ofTheSelfTestIsHalfAnHour) {
    setClockForwardOnce(almostHalfAnHour);
    EXPECT_EQ(SelfTestMode::run(), exitStatus);
    setClockForwardOnce(halfAnHour + 1);
    EXPECT_EQ(SelfTestMode::run(), 1);
}

TEST(RecoveryTimeoutValueTest, isGivenInSeconds) {
    EXPECT_EQ(AmbrelRecoveryProcessRunner::defaultTimeout, 1800.0);
}
