#include "AmbrelRecoveryApp/Model/RecoveryEngineProgram.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <span>
#include <stdexcept>
#include <stop_token>

namespace {

constexpr auto passphrase = AmbrelRecoveryAppFactor::backupPassphrase;
constexpr auto recoveryKey = AmbrelRecoveryAppFactor::recoveryKey;

SecretBytes secret() {
    return SecretBytes::copyOf(std::as_bytes(std::span("secret", 6)));
}

} // namespace

TEST(RecoveryEngineProgramTest, doesNotStartACancelledRun) {
    RecoveryEngineProgram engine("/bin/true");
    const AmbrelRecoveryCredentialSession session(passphrase, secret());
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(engine.run({}, session, passphrase, stop.get_token()), CancellationError);
}

TEST(RecoveryEngineProgramTest, doesNotStartWithoutACredentialForTheFactor) {
    // An engine that cannot be started would give another error.
    RecoveryEngineProgram engine("/nonexistent");
    AmbrelRecoveryCredentialSession session(passphrase, secret());
    const auto runWith = [&](AmbrelRecoveryAppFactor factor) {
        try {
            engine.run({}, session, factor, {});
        } catch (AmbrelRecoveryProcessError error) {
            return error;
        }
        throw std::logic_error("the run succeeded");
    };
    EXPECT_EQ(runWith(recoveryKey), AmbrelRecoveryProcessError::launchFailed);
    EXPECT_EQ(runWith(passphrase), AmbrelRecoveryProcessError::executableUnavailable);
    session.invalidate();
    EXPECT_EQ(runWith(passphrase), AmbrelRecoveryProcessError::launchFailed);
}

TEST(RecoveryEngineProgramTest, handsOverTheCredentialAndReturnsWhatTheEngineLeft) {
    RecoveryEngineProgram engine("/bin/cat");
    const AmbrelRecoveryCredentialSession session(passphrase, secret());
    const auto result = engine.run({}, session, passphrase, {});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.standardOutput, "secret\n");
}
