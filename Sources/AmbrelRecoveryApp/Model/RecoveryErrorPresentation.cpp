#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"

#include "AmbrelLocalization/AmbrelStrings.h"

namespace {

struct ErrorTexts {
    LocalizedStringResource title;
    LocalizedStringResource body;
};

ErrorTexts errorTexts(AmbrelRecoveryFailureKind kind) {
    using namespace AmbrelStrings;
    switch (kind) {
    case AmbrelRecoveryFailureKind::cancelled:
        return {recoveryFailureCancelledTitle(), recoveryFailureCancelledBody()};
    case AmbrelRecoveryFailureKind::wrongPassphrase:
        return {recoveryFailureWrongPassphraseTitle(), recoveryFailureWrongPassphraseBody()};
    case AmbrelRecoveryFailureKind::wrongRecoveryKey:
        return {recoveryFailureWrongKeyTitle(), recoveryFailureWrongKeyBody()};
    case AmbrelRecoveryFailureKind::invalidPackage:
        return {recoveryFailureInvalidPackageTitle(), recoveryFailureInvalidPackageBody()};
    case AmbrelRecoveryFailureKind::packageUnavailable:
        return {recoveryFailureUnavailableTitle(), recoveryFailureUnavailableBody()};
    case AmbrelRecoveryFailureKind::integrityFailure:
        return {recoveryFailureIntegrityTitle(), recoveryFailureIntegrityBody()};
    case AmbrelRecoveryFailureKind::destinationExists:
    case AmbrelRecoveryFailureKind::destinationUnavailable:
        return {filesExportDestinationUnavailableTitle(), filesExportDestinationUnavailableBody()};
    case AmbrelRecoveryFailureKind::generic:
        break;
    }
    return {recoveryFailureGenericTitle(), recoveryFailureGenericBody()};
}

} // namespace

RecoveryViewModel::PresentedError RecoveryErrorPresentation::errorPresentation(AmbrelRecoveryFailureKind kind) {
    const ErrorTexts texts = errorTexts(kind);
    return {QUuid::createUuid(), AmbrelStrings::localized(texts.title), AmbrelStrings::localized(texts.body)};
}
