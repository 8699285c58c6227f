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

/// One run of the engine with the session's credential, and what it means. Stateless; any thread.
namespace RecoveryEngineRun {

/// An accepted document, or the failure that the run stands for.
template<typename Document>
using Outcome = std::variant<std::shared_ptr<const Document>, AmbrelRecoveryFailureKind>;
using InspectionOutcome = Outcome<AmbrelRecoveryInspectionDocument>;
using ExportOutcome = Outcome<AmbrelRecoveryExportDocument>;

/// Fetches the credential from the session, runs the engine, and wipes the fetched copy. Blocks for the engine's whole
/// life: never on the main thread. Throws CancellationError where the token is stopped already, and
/// AmbrelRecoveryProcessError; a session that holds no credential for the factor gives launchFailed.
AmbrelRecoveryProcessResult run(AmbrelRecoveryProcessRunner& runner, const std::vector<std::string>& arguments,
                                const AmbrelRecoveryCredentialSession& session, AmbrelRecoveryAppFactor factor,
                                const std::stop_token& stopToken);

/// A run is accepted where its exit status is 0 and its output is a document with the expected identifiers.
InspectionOutcome inspectionOutcome(const AmbrelRecoveryProcessResult& result, AmbrelRecoveryAppFactor factor);
ExportOutcome exportOutcome(const AmbrelRecoveryProcessResult& result, AmbrelRecoveryAppFactor factor);

/// The failure that an error thrown out of a run or a preparation stands for. `error` must hold one.
AmbrelRecoveryFailureKind failureKind(const std::exception_ptr& error);

/// Whether a run was refused since an earlier one was not over. `error` must hold one.
bool isEarlierRunActive(const std::exception_ptr& error);

} // namespace RecoveryEngineRun
