#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessResult.h"

#include <stop_token>
#include <string>
#include <vector>

class AmbrelRecoveryCredentialSession;

/// The interface between the workflow and the recovery engine. Any thread.
class RecoveryEngine {
public:
    RecoveryEngine() = default;
    RecoveryEngine(const RecoveryEngine&) = delete;
    RecoveryEngine& operator=(const RecoveryEngine&) = delete;
    virtual ~RecoveryEngine() = default;

    /// Runs the engine with the session's credential and returns its result. Blocks until the engine has ended: never
    /// call it on the main thread. Throws CancellationError if the token is stopped before the engine starts,
    /// AmbrelRecoveryProcessError::operationAlreadyRunning if an earlier run has not ended, launchFailed if the session
    /// holds no credential for the factor, and other errors of that type.
    virtual AmbrelRecoveryProcessResult run(const std::vector<std::string>& arguments,
                                            const AmbrelRecoveryCredentialSession& session,
                                            AmbrelRecoveryAppFactor factor, const std::stop_token& stopToken) = 0;

    /// Asks the running engine, if any, to end.
    virtual void cancelCurrentOperation() = 0;
};
