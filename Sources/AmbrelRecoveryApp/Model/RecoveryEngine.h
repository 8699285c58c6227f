#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessResult.h"

#include <stop_token>
#include <string>
#include <vector>

class AmbrelRecoveryCredentialSession;

/// The recovery engine as the workflow drives it. Any thread.
class RecoveryEngine {
public:
    RecoveryEngine() = default;
    RecoveryEngine(const RecoveryEngine&) = delete;
    RecoveryEngine& operator=(const RecoveryEngine&) = delete;
    virtual ~RecoveryEngine() = default;

    /// Runs the engine with the session's credential and returns what it left. Blocks for the engine's whole life:
    /// never on the main thread. Throws CancellationError where the token is stopped before the engine starts,
    /// AmbrelRecoveryProcessError::operationAlreadyRunning where an earlier run did not come to its end, and other
    /// errors of that type.
    virtual AmbrelRecoveryProcessResult run(const std::vector<std::string>& arguments,
                                            const AmbrelRecoveryCredentialSession& session,
                                            AmbrelRecoveryAppFactor factor, const std::stop_token& stopToken) = 0;

    /// Asks the running engine, if there is one, to end.
    virtual void cancelCurrentOperation() = 0;
};
