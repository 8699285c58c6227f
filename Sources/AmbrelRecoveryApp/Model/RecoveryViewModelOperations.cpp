// The long operations of the model. Each step runs on a background thread; its result is applied on the main thread.

#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "AmbrelRecoveryApp/Model/RecoveryEngine.h"
#include "AmbrelRecoveryApp/Model/RecoveryEngineCommandLine.h"
#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"
#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryPackagePreparation.h"
#include "AmbrelRecoveryAppSupport/SecretStackWiper.h"

#include <QPointer>

#include <functional>
#include <future>
#include <system_error>

using RecoveryErrorPresentation::errorPresentation;

std::stop_token RecoveryViewModel::beginOperation() {
    operationTask_.request_stop();
    operationTask_ = std::stop_source();
    return operationTask_.get_token();
}

template<typename Work, typename Succeeding>
void RecoveryViewModel::runStep(const std::stop_token& stopToken, Work work, Succeeding succeed, Failing fail,
                                BackgroundTask::AtEnd atEnd) {
    const auto complete = [model = QPointer(this), stopToken, succeed, fail](auto& outcome) {
        RecoveryViewModel* const current = model;
        if (current == nullptr || stopToken.stop_requested()) {
            return;
        }
        try {
            succeed(*current, outcome);
        } catch (...) {
            (current->*fail)(std::current_exception());
        }
    };
    try {
        BackgroundTask::run(std::move(work), complete, atEnd);
    } catch (const std::system_error&) {
        // No thread is available.
        (this->*fail)(std::current_exception());
    }
}

void RecoveryViewModel::checkChoice(std::function<RecoveryChosenPath::Outcome()> check, Accepting accept) {
    runStep(
        beginOperation(), std::move(check),
        [accept = std::move(accept)](RecoveryViewModel& model, std::future<RecoveryChosenPath::Outcome>& outcome) {
            const RecoveryChosenPath::Outcome result = outcome.get();
            if (const auto* const failure = std::get_if<AmbrelRecoveryFailureKind>(&result)) {
                model.publish(model.presentedError_, errorPresentation(*failure));
                return;
            }
            accept(model, std::get<std::filesystem::path>(result));
        },
        &RecoveryViewModel::failCheck, BackgroundTask::AtEnd::abandoned);
}

void RecoveryViewModel::startPreparation() {
    const std::stop_token stopToken = beginOperation();
    const auto showProgress = [model = QPointer(this), stopToken](std::optional<double> fraction) {
        BackgroundTask::postToMainThread([model, stopToken, fraction] {
            RecoveryViewModel* const current = model;
            if (current != nullptr && !stopToken.stop_requested()) {
                current->publish(current->packagePreparationProgress_, fraction);
            }
        });
    };
    runStep(
        stopToken,
        [package = *packageURL_, cloudItems = desktop_.cloudItems, showProgress, stopToken] {
            AmbrelRecoveryPackagePreparation::prepareForRead(package, *cloudItems, showProgress, stopToken);
        },
        [stopToken](RecoveryViewModel& model, std::future<void>& outcome) {
            outcome.get();
            model.startInspection(stopToken);
        },
        &RecoveryViewModel::failPreparationOrInspection);
}

template<typename Document>
void RecoveryViewModel::runEngine(const std::stop_token& stopToken, const std::vector<std::string>& arguments,
                                  void (RecoveryViewModel::*apply)(RecoveryEngineRun::Outcome<Document>),
                                  Failing fail) {
    runStep(
        stopToken,
        [engine = engine_, session = credentialSession_, factor = factor_, stopToken, arguments] {
            return RecoveryEngineRun::outcome<Document>(engine->run(arguments, *session, factor, stopToken), factor);
        },
        [apply](RecoveryViewModel& model, std::future<RecoveryEngineRun::Outcome<Document>>& outcome) {
            std::invoke(apply, model, outcome.get());
        },
        fail);
}

void RecoveryViewModel::startInspection(const std::stop_token& stopToken) {
    publish(packagePreparationProgress_, 1.0);
    publish(phase_, Phase::inspecting);
    runEngine(stopToken, RecoveryEngineCommandLine::inspectArguments(*packageURL_, factor_),
              &RecoveryViewModel::applyInspection, &RecoveryViewModel::failPreparationOrInspection);
}

void RecoveryViewModel::startExport(const std::filesystem::path& destination) {
    runEngine(beginOperation(),
              RecoveryEngineCommandLine::exportArguments(*packageURL_, *selectedSnapshotCode_, destination, factor_),
              &RecoveryViewModel::applyExport, &RecoveryViewModel::failExport);
}

void RecoveryViewModel::applyInspection(RecoveryEngineRun::Outcome<AmbrelRecoveryInspectionDocument> outcome) {
    if (const auto* const failure = std::get_if<AmbrelRecoveryFailureKind>(&outcome)) {
        presentInspectionFailure(*failure);
        return;
    }
    auto document = std::get<0>(std::move(outcome));
    std::optional<std::string> recommendation = document->recommendedSnapshotCode();
    publish(inspection_, std::move(document));
    publish(selectedSnapshotCode_, std::move(recommendation));
    publish(phase_, Phase::snapshots);
}

void RecoveryViewModel::applyExport(RecoveryEngineRun::Outcome<AmbrelRecoveryExportDocument> outcome) {
    if (const auto* const failure = std::get_if<AmbrelRecoveryFailureKind>(&outcome)) {
        presentExportFailure(*failure);
        return;
    }
    publish(exportResult_, std::get<0>(std::move(outcome)));
    dropCredentialSession();
    publish(phase_, Phase::complete);
}

void RecoveryViewModel::failCheck(const std::exception_ptr& error) {
    publish(presentedError_, errorPresentation(RecoveryEngineRun::failureKind(error)));
}

void RecoveryViewModel::failPreparationOrInspection(const std::exception_ptr& error) {
    publish(packagePreparationProgress_, std::nullopt);
    if (RecoveryEngineRun::isEarlierRunActive(error)) {
        // The engine never received the credential, and the user should not have to type it again.
        const SecretStackWiper wiper;
        if (const std::optional<SecretBytes> credential = credentialSession_->credential(factor_)) {
            publish(credential_, SecretText::ofUtf8(*credential));
        }
    }
    presentInspectionFailure(RecoveryEngineRun::failureKind(error));
}

void RecoveryViewModel::failExport(const std::exception_ptr& error) {
    presentExportFailure(RecoveryEngineRun::failureKind(error));
}

void RecoveryViewModel::presentInspectionFailure(AmbrelRecoveryFailureKind kind) {
    publish(phase_, Phase::chooseBackup);
    dropCredentialSession();
    publish(presentedError_, errorPresentation(kind));
}

/// Keeps the credential session, so that the user can retry without typing.
void RecoveryViewModel::presentExportFailure(AmbrelRecoveryFailureKind kind) {
    publish(phase_, Phase::snapshots);
    publish(presentedError_, errorPresentation(kind));
}
