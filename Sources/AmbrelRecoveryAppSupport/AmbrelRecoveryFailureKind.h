#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessResult.h"

/// The failures that the user is told about.
enum class AmbrelRecoveryFailureKind {
    cancelled,              ///< the user stopped the operation
    wrongPassphrase,        ///< the backup passphrase does not unlock the package
    wrongRecoveryKey,       ///< the recovery key does not unlock the package
    invalidPackage,         ///< the chosen item is no backup package, or one of an unsupported version
    packageUnavailable,     ///< the package cannot be read
    integrityFailure,       ///< the package's contents failed verification
    destinationExists,      ///< the export destination already exists
    destinationUnavailable, ///< the export destination cannot be used or written
    generic,                ///< anything else
};

/// The failure that a finished run of the engine, made with `factor`, stands for. Meant for runs that did not succeed;
/// the exit status 0 is not treated in any special way. Pure; any thread.
AmbrelRecoveryFailureKind classify(const AmbrelRecoveryProcessResult& result, AmbrelRecoveryAppFactor factor);
