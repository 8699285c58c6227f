#include "Output/OutputFailure.h"

#include <cerrno>

Failure OutputFailure::atDestination(int error) {
    switch (error) {
    case EEXIST:
    case ENOTEMPTY:
        return Failure(FailureReason::destinationExists);
    case ENOSPC:
    case EDQUOT:
    case EIO:
        return Failure(FailureReason::outputNotWritten, "the folder cannot be made");
    default:
        return Failure(FailureReason::destinationUnavailable);
    }
}

Failure OutputFailure::whileWriting() {
    return Failure(FailureReason::outputNotWritten, "a file cannot be written");
}
