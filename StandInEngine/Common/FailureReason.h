#pragma once

/// Why a run of the engine failed. FailureText has a sentence and an exit status for each.
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
