#pragma once

/// What a run of the engine throws. It carries nothing: the system's own error is dropped.
enum class AmbrelRecoveryProcessError {
    executableUnavailable,      ///< the engine is missing or not executable
    operationAlreadyRunning,    ///< another run of the same runner has an engine process
    temporaryOutputUnavailable, ///< the private output directory or files cannot be made, opened or read back
    launchFailed,               ///< the engine cannot be started, or the credential cannot be delivered
    timedOut,                   ///< the engine was still running when the time-out expired
};
