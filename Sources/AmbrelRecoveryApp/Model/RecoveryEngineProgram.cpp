#include "AmbrelRecoveryApp/Model/RecoveryEngineProgram.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"
#include "AmbrelRecoveryAppSupport/SecretStackWiper.h"

#include <QScopeGuard>

#include <optional>

RecoveryEngineProgram::RecoveryEngineProgram(const std::filesystem::path& executableURL,
                                             std::chrono::milliseconds longestWait)
    : runner_(executableURL), longestWait_(longestWait) {}

AmbrelRecoveryProcessResult RecoveryEngineProgram::run(const std::vector<std::string>& arguments,
                                                       const AmbrelRecoveryCredentialSession& session,
                                                       AmbrelRecoveryAppFactor factor,
                                                       const std::stop_token& stopToken) {
    waitForTurn(stopToken);
    const auto turn = qScopeGuard([this] {
        const std::lock_guard lock(mutex_);
        isRunning_ = false;
        runEnded_.notify_all();
    });
    // The stack of a thread that has ended is reused for the next one.
    const SecretStackWiper wiper;
    const std::optional<SecretBytes> credential = session.credential(factor);
    if (!credential) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    return runner_.run(arguments, credential->bytes(), AmbrelRecoveryProcessRunner::defaultTimeout, stopToken);
}

/// Waits until no other run is active and becomes the active one: before the runner is called, since a run that was
/// cancelled early may register its process late.
void RecoveryEngineProgram::waitForTurn(const std::stop_token& stopToken) {
    std::unique_lock lock(mutex_);
    const bool isFree = runEnded_.wait_for(lock, stopToken, longestWait_, [this] { return !isRunning_; });
    if (stopToken.stop_requested()) {
        throw CancellationError();
    }
    if (!isFree) {
        throw AmbrelRecoveryProcessError::operationAlreadyRunning;
    }
    isRunning_ = true;
}
