#include "AmbrelRecoveryApp/Model/RecoveryEngineRun.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"
#include "AmbrelRecoveryAppSupport/DocumentDecodingError.h"

template<typename Document>
RecoveryEngineRun::Outcome<Document> RecoveryEngineRun::outcome(const AmbrelRecoveryProcessResult& result,
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

template RecoveryEngineRun::Outcome<AmbrelRecoveryInspectionDocument>
RecoveryEngineRun::outcome(const AmbrelRecoveryProcessResult&, AmbrelRecoveryAppFactor);
template RecoveryEngineRun::Outcome<AmbrelRecoveryExportDocument>
RecoveryEngineRun::outcome(const AmbrelRecoveryProcessResult&, AmbrelRecoveryAppFactor);

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
