#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessResult.h"

/// The failures that are presented to the user.
enum class AmbrelRecoveryFailureKind {
    cancelled,              ///< the user stopped the operation
    wrongPassphrase,        ///< the backup passphrase does not unlock the package
    wrongRecoveryKey,       ///< the recovery key does not unlock the package
    invalidPackage,         ///< the chosen item is not a backup package, or its version is not supported
    packageUnavailable,     ///< the package cannot be read
    integrityFailure,       ///< the package's contents failed the integrity check
    destinationExists,      ///< the export destination already exists
    destinationUnavailable, ///< the export destination cannot be used or written
    generic,                ///< anything else
};

/// Classifies the result of an engine run that was made with `factor`. Meant for failed runs; an exit status of 0 is
/// not treated specially. Pure; any thread.
AmbrelRecoveryFailureKind classify(const AmbrelRecoveryProcessResult& result, AmbrelRecoveryAppFactor factor);
