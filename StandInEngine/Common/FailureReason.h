#pragma once

/// Why a run of the engine failed. Each has its own sentence and exit status (FailureText).
enum class FailureReason {
    passphraseDidNotUnlock,
    recoveryKeyDidNotUnlock,
    credentialInvalid,
    packageInvalid,
    packageUnavailable,
    integrity,
    destinationExists,
    destinationUnavailable,
    outputNotWritten,
    credentialMissing,
    snapshotUnknown,
    outOfMemory,
    reportNotPrinted,
    unexpected,
};
