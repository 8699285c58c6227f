#include "AmbrelRecoveryApp/Model/RecoveryEngineRun.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"

#include <gtest/gtest.h>

#include <new>
#include <system_error>

namespace {

using Kind = AmbrelRecoveryFailureKind;
constexpr auto passphrase = AmbrelRecoveryAppFactor::backupPassphrase;
constexpr auto recoveryKey = AmbrelRecoveryAppFactor::recoveryKey;

template<typename Error>
Kind kindOf(const Error& error) {
    return RecoveryEngineRun::failureKind(std::make_exception_ptr(error));
}

SecretBytes secret() {
    return SecretBytes::copyOf(std::as_bytes(std::span("secret", 6)));
}

} // namespace

TEST(RecoveryEngineRun, tellsEveryThrownErrorAsAFailure) {
    EXPECT_EQ(kindOf(CancellationError()), Kind::cancelled);
    EXPECT_EQ(kindOf(AmbrelRecoveryPackagePreparationError::downloadFailed), Kind::packageUnavailable);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::timedOut), Kind::packageUnavailable);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::executableUnavailable), Kind::generic);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::operationAlreadyRunning), Kind::generic);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::temporaryOutputUnavailable), Kind::generic);
    EXPECT_EQ(kindOf(AmbrelRecoveryProcessError::launchFailed), Kind::generic);
    EXPECT_EQ(kindOf(std::system_error(std::make_error_code(std::errc::io_error))), Kind::generic);
    EXPECT_EQ(kindOf(std::bad_alloc()), Kind::generic);
}

TEST(RecoveryEngineRun, doesNotStartACancelledRun) {
    AmbrelRecoveryProcessRunner runner("/bin/true");
    const AmbrelRecoveryCredentialSession session(passphrase, secret());
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(RecoveryEngineRun::run(runner, {}, session, passphrase, stop.get_token()), CancellationError);
}

TEST(RecoveryEngineRun, doesNotStartWithoutACredentialForTheFactor) {
    // An engine that cannot be started would give another error.
    AmbrelRecoveryProcessRunner runner("/nonexistent");
    AmbrelRecoveryCredentialSession session(passphrase, secret());
    const auto runWith = [&](AmbrelRecoveryAppFactor factor) {
        try {
            RecoveryEngineRun::run(runner, {}, session, factor, {});
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

TEST(RecoveryEngineRun, handsOverTheCredentialAndReturnsWhatTheEngineLeft) {
    AmbrelRecoveryProcessRunner runner("/bin/cat");
    const AmbrelRecoveryCredentialSession session(passphrase, secret());
    const auto result = RecoveryEngineRun::run(runner, {}, session, passphrase, {});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.standardOutput, "secret\n");
}

TEST(RecoveryEngineRun, classifiesADocumentThatIsNotAccepted) {
    const auto outcome = RecoveryEngineRun::inspectionOutcome({0, "{}", "package is unavailable"}, passphrase);
    EXPECT_EQ(std::get<Kind>(outcome), Kind::packageUnavailable);
    EXPECT_EQ(std::get<Kind>(RecoveryEngineRun::exportOutcome({0, "", "did not unlock"}, recoveryKey)),
              Kind::wrongRecoveryKey);
}

TEST(RecoveryEngineRun, acceptsAnExportOfAnyStatusAndRefusesItWithAnotherExitStatus) {
    const std::string document =
        R"({"schemaIdentifier":"com.ambrel.recovery.cli-export.v1","status":"","selectedSnapshotCode":"",)"
        R"("totalItemCount":0,"recoveredItemCount":0,"totalResourceCount":9,"recoveredResourceCount":0,)"
        R"("failedResourceCount":9})";
    const auto accepted = RecoveryEngineRun::exportOutcome({0, document, "integrity verification failed"}, passphrase);
    EXPECT_EQ(std::get<AmbrelRecoveryExportDocument>(accepted).failedResourceCount, 9);
    const auto refused = RecoveryEngineRun::exportOutcome({1, document, ""}, passphrase);
    EXPECT_EQ(std::get<Kind>(refused), Kind::generic);
}
