#include "Common/FailureText.h"

std::string_view FailureText::sentence(FailureReason reason) {
    switch (reason) {
    case FailureReason::passphraseDidNotUnlock:
        return "The passphrase did not unlock this backup.";
    case FailureReason::recoveryKeyDidNotUnlock:
        return "The recovery key did not unlock this backup.";
    case FailureReason::credentialInvalid:
        return "The credential is invalid.";
    case FailureReason::packageInvalid:
        return "The chosen item is invalid or unsupported.";
    case FailureReason::packageUnavailable:
        return "The backup package is unavailable.";
    case FailureReason::integrity:
        return "The backup's integrity verification failed.";
    case FailureReason::destinationExists:
        return "The destination already exists.";
    case FailureReason::destinationUnavailable:
        return "The destination is unavailable.";
    case FailureReason::outputNotWritten:
        return "The output could not be written.";
    case FailureReason::credentialMissing:
        return "No credential and line feed arrived on standard input.";
    case FailureReason::snapshotUnknown:
        return "This backup has no snapshot with that code.";
    case FailureReason::outOfMemory:
        return "There is not enough memory.";
    case FailureReason::reportNotPrinted:
        return "The report could not be printed.";
    case FailureReason::unexpected:
        break;
    }
    return "An unexpected error stopped the run.";
}

int FailureText::exitStatus(FailureReason reason) {
    switch (reason) {
    case FailureReason::passphraseDidNotUnlock:
    case FailureReason::recoveryKeyDidNotUnlock:
        return 2;
    case FailureReason::credentialInvalid:
        return 3;
    case FailureReason::packageInvalid:
        return 4;
    case FailureReason::packageUnavailable:
        return 5;
    case FailureReason::integrity:
        return 6;
    case FailureReason::destinationExists:
        return 7;
    case FailureReason::destinationUnavailable:
        return 8;
    case FailureReason::outputNotWritten:
        return 9;
    case FailureReason::credentialMissing:
    case FailureReason::snapshotUnknown:
    case FailureReason::outOfMemory:
    case FailureReason::reportNotPrinted:
    case FailureReason::unexpected:
        break;
    }
    return 1;
}

std::string FailureText::line(std::string_view program, const Failure& failure) {
    std::string text(program);
    text += ": ";
    text += sentence(failure.reason());
    if (const std::string_view detail = failure.what(); !detail.empty()) {
        text += " (";
        text += detail;
        text += ")";
    }
    text += "\n";
    return text;
}
