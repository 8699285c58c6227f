#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExportDocument.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryFailureKind.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessResult.h"

#include <exception>
#include <memory>
#include <variant>

/// Interprets what a run of the engine returned or threw. Stateless; any thread.
namespace RecoveryEngineRun {

/// An accepted document, or the failure of the run.
template<typename Document>
using Outcome = std::variant<std::shared_ptr<const Document>, AmbrelRecoveryFailureKind>;

/// A run is accepted if its exit status is 0 and its output is a document with the expected identifiers. Defined for
/// both documents.
template<typename Document>
Outcome<Document> outcome(const AmbrelRecoveryProcessResult& result, AmbrelRecoveryAppFactor factor);

/// The failure kind for an exception thrown by a run or a preparation. `error` must not be null.
AmbrelRecoveryFailureKind failureKind(const std::exception_ptr& error);

/// Whether a run was refused because an earlier one had not ended. `error` must not be null.
bool isEarlierRunActive(const std::exception_ptr& error);

} // namespace RecoveryEngineRun
