#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Model/RecoveryChosenPath.h"
#include "AmbrelRecoveryApp/Model/RecoveryEngineProgram.h"
#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"
#include "AmbrelRecoveryApp/Model/RecoveryFileViewer.h"
#include "AmbrelRecoveryApp/Model/RecoveryPanels.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/SecretStackWiper.h"

#include <QPointer>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

using Path = std::filesystem::path;
using RecoveryErrorPresentation::errorPresentation;

std::shared_ptr<RecoveryEngine> engineAt(const std::optional<Path>& executableURL) {
    return executableURL ? std::make_shared<RecoveryEngineProgram>(*executableURL) : nullptr;
}

} // namespace

RecoveryViewModel::RecoveryViewModel(const std::optional<Path>& executableURL, Desktop desktop)
    : RecoveryViewModel(engineAt(executableURL), std::move(desktop)) {}

RecoveryViewModel::RecoveryViewModel(std::shared_ptr<RecoveryEngine> engine, Desktop desktop)
    : desktop_(std::move(desktop)), engine_(std::move(engine)) {
    if (!engine_) {
        presentedError_ = errorPresentation(AmbrelRecoveryFailureKind::generic);
    }
}

RecoveryViewModel::~RecoveryViewModel() {
    MainThread::require();
    cancelRunningOperation();
    dropCredentialSession();
}

void RecoveryViewModel::setFactor(AmbrelRecoveryAppFactor factor) {
    if (!isBusy()) {
        publish(factor_, factor);
    }
}

void RecoveryViewModel::setCredential(SecretText credential) {
    if (!isBusy()) {
        publish(credential_, std::move(credential));
    }
}

void RecoveryViewModel::setSelectedSnapshotCode(std::optional<std::string> code) {
    if (phase_ != Phase::exporting) {
        publish(selectedSnapshotCode_, std::move(code));
    }
}

void RecoveryViewModel::dismissPresentedError() {
    publish(presentedError_, std::nullopt);
}

bool RecoveryViewModel::isBusy(Phase phase) {
    return phase == Phase::preparingPackage || phase == Phase::inspecting || phase == Phase::exporting;
}

bool RecoveryViewModel::canInspect() const {
    MainThread::require();
    return packageURL_ && !credential_.isBlank() && !isBusy();
}

bool RecoveryViewModel::canExport() const {
    MainThread::require();
    return inspection_ && selectedSnapshotCode_ && credentialSession_ &&
           credentialSession_->containsCredential(factor_) && !isBusy();
}

void RecoveryViewModel::chooseBackup() {
    MainThread::require();
    if (isBusy()) {
        return;
    }
    const QString action = AmbrelStrings::localized(AmbrelStrings::recoveryChoosePackageAction());
    desktop_.panels.chooseBackup({.title = action, .prompt = action},
                                 [model = QPointer(this)](const std::optional<Path>& chosen) {
                                     if (model && chosen) {
                                         model->acceptPackage(*chosen);
                                     }
                                 });
}

void RecoveryViewModel::acceptPackage(const Path& chosen) {
    MainThread::require();
    if (!isBusy()) {
        checkChoice([chosen] { return RecoveryChosenPath::package(chosen); }, &RecoveryViewModel::applyPackage);
    }
}

void RecoveryViewModel::applyPackage(const Path& package) {
    publish(packageURL_, package);
    forgetPackageContents();
    publish(phase_, Phase::chooseBackup);
    publish(presentedError_, std::nullopt);
}

void RecoveryViewModel::inspectBackup() {
    MainThread::require();
    if (!engine_ || !canInspect()) {
        return;
    }
    const SecretStackWiper wiper;
    SecretBytes credential = credential_.utf8();
    publish(credential_, SecretText());
    dropCredentialSession();
    credentialSession_ = std::make_shared<AmbrelRecoveryCredentialSession>(factor_, std::move(credential));
    publish(presentedError_, std::nullopt);
    publish(packagePreparationProgress_, std::nullopt);
    publish(phase_, Phase::preparingPackage);
    startPreparation();
}

void RecoveryViewModel::chooseDestinationAndExport() {
    MainThread::require();
    if (!packageURL_ || !engine_ || !canExport()) {
        return;
    }
    desktop_.panels.chooseDestination({.title = AmbrelStrings::localized(AmbrelStrings::filesExportChooseDestination()),
                                       .prompt = AmbrelStrings::localized(AmbrelStrings::filesExportStart()),
                                       .proposedName = QStringLiteral("Ambrel Recovered"),
                                       .requiredByteCount = selectedByteCount()},
                                      [model = QPointer(this)](const std::optional<Path>& chosen) {
                                          if (model && chosen) {
                                              model->exportTo(*chosen);
                                          }
                                      });
}

/// The size of the selected snapshot; std::nullopt if the inspection has no snapshot with that code.
std::optional<std::uint64_t> RecoveryViewModel::selectedByteCount() const {
    using Snapshot = AmbrelRecoveryInspectionDocument::Snapshot;
    const auto selected = std::ranges::find(inspection_->snapshots, *selectedSnapshotCode_, &Snapshot::selectionCode);
    return selected == inspection_->snapshots.end() ? std::nullopt : std::optional(selected->logicalPlaintextByteCount);
}

void RecoveryViewModel::exportTo(const Path& chosen) {
    // Assistive technology can activate controls behind the open panel.
    if (!packageURL_ || !canExport()) {
        return;
    }
    checkChoice([chosen, package = *packageURL_] { return RecoveryChosenPath::destination(chosen, package); },
                [chosen, code = selectedSnapshotCode_](RecoveryViewModel& model, const Path& destination) {
                    // The state may have changed during the check. The destination was named for this snapshot.
                    if (model.canExport() && model.selectedSnapshotCode_ == code) {
                        model.publish(model.destinationURL_, destination);
                        model.publish(model.presentedError_, std::nullopt);
                        model.publish(model.phase_, Phase::exporting);
                        model.startExport(chosen);
                    }
                });
}

void RecoveryViewModel::openRecoveredFolder() {
    MainThread::require();
    if (destinationURL_) {
        desktop_.fileViewer.reveal(*destinationURL_);
    }
}

void RecoveryViewModel::startAgain() {
    MainThread::require();
    cancelRunningOperation();
    publish(packageURL_, std::nullopt);
    forgetPackageContents();
    publish(presentedError_, std::nullopt);
    publish(phase_, Phase::chooseBackup);
}

void RecoveryViewModel::cancelOperation() {
    MainThread::require();
    cancelRunningOperation();
    publish(packagePreparationProgress_, std::nullopt);
    if (!inspection_) {
        dropCredentialSession();
    }
    publish(phase_, inspection_ ? Phase::snapshots : Phase::chooseBackup);
}

QString RecoveryViewModel::formattedPercent(double fraction) {
    return AmbrelStrings::formattedPercent(fraction, AmbrelStrings::currentFormattingLocale());
}

QString RecoveryViewModel::formattedDate(std::int64_t milliseconds) {
    using Time = std::chrono::sys_time<std::chrono::milliseconds>;
    return AmbrelStrings::formattedDateTime(Time(std::chrono::milliseconds(milliseconds)),
                                            AmbrelStrings::currentFormattingLocale());
}

void RecoveryViewModel::forgetPackageContents() {
    publish(inspection_, nullptr);
    publish(selectedSnapshotCode_, std::nullopt);
    publish(destinationURL_, std::nullopt);
    publish(exportResult_, nullptr);
    publish(packagePreparationProgress_, std::nullopt);
    publish(credential_, SecretText());
    dropCredentialSession();
}

/// Stops the operation before the engine, so that an engine that is just being launched sees the stop.
void RecoveryViewModel::cancelRunningOperation() {
    operationTask_.request_stop();
    if (engine_) {
        engine_->cancelCurrentOperation();
    }
}

void RecoveryViewModel::dropCredentialSession() {
    if (credentialSession_) {
        credentialSession_->invalidate();
        credentialSession_.reset();
    }
}
