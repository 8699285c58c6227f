#pragma once

/// Thrown by a run of the engine. It has no further details: the underlying system error is dropped.
enum class AmbrelRecoveryProcessError {
    executableUnavailable,      ///< the engine is missing or not executable
    operationAlreadyRunning,    ///< another run of the same runner has an engine process
    temporaryOutputUnavailable, ///< the private output directory or its files cannot be created, opened or read
    launchFailed,               ///< the engine cannot be started, or the credential cannot be delivered
    timedOut,                   ///< the engine was still running when the timeout expired
};
