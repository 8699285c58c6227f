#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExportDocument.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryFailureKind.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessResult.h"

#include <exception>
#include <memory>
#include <stop_token>
#include <string>
#include <variant>
#include <vector>

class AmbrelRecoveryCredentialSession;
class AmbrelRecoveryProcessRunner;

/// Runs the engine with the session's credential and interprets the result. Stateless; any thread.
namespace RecoveryEngineRun {

/// An accepted document, or the failure of the run.
template<typename Document>
using Outcome = std::variant<std::shared_ptr<const Document>, AmbrelRecoveryFailureKind>;
using InspectionOutcome = Outcome<AmbrelRecoveryInspectionDocument>;
using ExportOutcome = Outcome<AmbrelRecoveryExportDocument>;

/// Fetches the credential from the session, runs the engine, and wipes the fetched copy. Blocks until the engine has
/// ended: never call it on the main thread. Throws CancellationError if the token is already stopped, and
/// AmbrelRecoveryProcessError; launchFailed if the session holds no credential for the factor.
AmbrelRecoveryProcessResult run(AmbrelRecoveryProcessRunner& runner, const std::vector<std::string>& arguments,
                                const AmbrelRecoveryCredentialSession& session, AmbrelRecoveryAppFactor factor,
                                const std::stop_token& stopToken);

/// A run is accepted if its exit status is 0 and its output is a document with the expected identifiers.
InspectionOutcome inspectionOutcome(const AmbrelRecoveryProcessResult& result, AmbrelRecoveryAppFactor factor);
ExportOutcome exportOutcome(const AmbrelRecoveryProcessResult& result, AmbrelRecoveryAppFactor factor);

/// The failure kind for an exception thrown by a run or a preparation. `error` must not be null.
AmbrelRecoveryFailureKind failureKind(const std::exception_ptr& error);

/// Whether a run was refused because an earlier one had not ended. `error` must not be null.
bool isEarlierRunActive(const std::exception_ptr& error);

} // namespace RecoveryEngineRun
