#include "AmbrelRecoveryApp/Model/RecoveryEngineRun.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"
#include "AmbrelRecoveryAppSupport/DocumentDecodingError.h"
#include "AmbrelRecoveryAppSupport/SecretStackWiper.h"

#include <utility>

namespace {

template<typename Document>
RecoveryEngineRun::Outcome<Document> documentOrFailure(const AmbrelRecoveryProcessResult& result,
                                                       AmbrelRecoveryAppFactor factor) {
    if (result.exitCode == 0) {
        try {
            // Constructed in place: std::make_shared would have to copy the const members.
            std::shared_ptr<const Document> document(new Document(Document::decode(result.standardOutput)));
            if (document->hasExpectedIdentifiers()) {
                return document;
            }
        } catch (const DocumentDecodingError&) {
            // An undecodable document is a failed run like any other and is classified below.
        }
    }
    return classify(result, factor);
}

} // namespace

AmbrelRecoveryProcessResult RecoveryEngineRun::run(AmbrelRecoveryProcessRunner& runner,
                                                   const std::vector<std::string>& arguments,
                                                   const AmbrelRecoveryCredentialSession& session,
                                                   AmbrelRecoveryAppFactor factor, const std::stop_token& stopToken) {
    // The stack of a thread that has ended is reused for the next one.
    const SecretStackWiper wiper;
    if (stopToken.stop_requested()) {
        throw CancellationError();
    }
    const std::optional<SecretBytes> credential = session.credential(factor);
    if (!credential) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    return runner.run(arguments, credential->bytes(), AmbrelRecoveryProcessRunner::defaultTimeout, stopToken);
}

RecoveryEngineRun::InspectionOutcome RecoveryEngineRun::inspectionOutcome(const AmbrelRecoveryProcessResult& result,
                                                                          AmbrelRecoveryAppFactor factor) {
    return documentOrFailure<AmbrelRecoveryInspectionDocument>(result, factor);
}

RecoveryEngineRun::ExportOutcome RecoveryEngineRun::exportOutcome(const AmbrelRecoveryProcessResult& result,
                                                                  AmbrelRecoveryAppFactor factor) {
    return documentOrFailure<AmbrelRecoveryExportDocument>(result, factor);
}

AmbrelRecoveryFailureKind RecoveryEngineRun::failureKind(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const CancellationError&) {
        return AmbrelRecoveryFailureKind::cancelled;
    } catch (AmbrelRecoveryPackagePreparationError) {
        return AmbrelRecoveryFailureKind::packageUnavailable;
    } catch (AmbrelRecoveryProcessError processError) {
        // A timeout is presented as a package that could not be read.
        return processError == AmbrelRecoveryProcessError::timedOut ? AmbrelRecoveryFailureKind::packageUnavailable
                                                                    : AmbrelRecoveryFailureKind::generic;
    } catch (...) {
        return AmbrelRecoveryFailureKind::generic;
    }
}

bool RecoveryEngineRun::isEarlierRunActive(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (AmbrelRecoveryProcessError processError) {
        return processError == AmbrelRecoveryProcessError::operationAlreadyRunning;
    } catch (...) {
        return false;
    }
}
