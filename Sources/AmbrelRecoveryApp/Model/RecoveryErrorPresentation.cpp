#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"

#include "AmbrelLocalization/AmbrelStrings.h"

namespace {

using PresentedError = RecoveryViewModel::PresentedError;

PresentedError withTexts(const LocalizedStringResource& title, const LocalizedStringResource& body) {
    return {QUuid::createUuid(), AmbrelStrings::localized(title), AmbrelStrings::localized(body)};
}

} // namespace

PresentedError RecoveryErrorPresentation::errorPresentation(AmbrelRecoveryFailureKind kind) {
    using namespace AmbrelStrings;
    switch (kind) {
    case AmbrelRecoveryFailureKind::cancelled:
        return withTexts(recoveryFailureCancelledTitle(), recoveryFailureCancelledBody());
    case AmbrelRecoveryFailureKind::wrongPassphrase:
        return withTexts(recoveryFailureWrongPassphraseTitle(), recoveryFailureWrongPassphraseBody());
    case AmbrelRecoveryFailureKind::wrongRecoveryKey:
        return withTexts(recoveryFailureWrongKeyTitle(), recoveryFailureWrongKeyBody());
    case AmbrelRecoveryFailureKind::invalidPackage:
        return withTexts(recoveryFailureInvalidPackageTitle(), recoveryFailureInvalidPackageBody());
    case AmbrelRecoveryFailureKind::packageUnavailable:
        return withTexts(recoveryFailureUnavailableTitle(), recoveryFailureUnavailableBody());
    case AmbrelRecoveryFailureKind::integrityFailure:
        return withTexts(recoveryFailureIntegrityTitle(), recoveryFailureIntegrityBody());
    case AmbrelRecoveryFailureKind::destinationExists:
    case AmbrelRecoveryFailureKind::destinationUnavailable:
        return withTexts(filesExportDestinationUnavailableTitle(), filesExportDestinationUnavailableBody());
    case AmbrelRecoveryFailureKind::generic:
        break;
    }
    return withTexts(recoveryFailureGenericTitle(), recoveryFailureGenericBody());
}
