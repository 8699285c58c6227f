#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Model/RecoveryErrorPresentation.h"
#include "AmbrelRecoveryApp/Model/RecoveryFileViewer.h"
#include "AmbrelRecoveryApp/Model/RecoveryFormats.h"
#include "AmbrelRecoveryApp/Model/RecoveryPanels.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"
#include "AmbrelRecoveryAppSupport/SecretStackWiper.h"

#include <QPointer>

#include <algorithm>
#include <system_error>
#include <utility>

namespace {

using Path = std::filesystem::path;
using RecoveryErrorPresentation::errorPresentation;

/// Absolute, without "." and ".." in it and without a separator at its end.
Path standardized(const Path& path) {
    std::error_code error;
    const Path normal = std::filesystem::absolute(path, error).lexically_normal();
    return normal.has_filename() ? normal : normal.parent_path();
}

bool isPackageDirectory(const Path& path) {
    std::string extension = standardized(path).extension().native();
    std::ranges::transform(extension, extension.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    std::error_code error;
    return extension == ".ambrel" && std::filesystem::is_directory(path, error);
}

/// Whether anything has this name, a symbolic link that leads nowhere included.
bool isTaken(const Path& path) {
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(path, error));
}

} // namespace

RecoveryViewModel::RecoveryViewModel(const std::optional<Path>& executableURL, Desktop desktop)
    : desktop_(std::move(desktop)) {
    if (executableURL) {
        runner_ = std::make_shared<AmbrelRecoveryProcessRunner>(*executableURL);
    } else {
        presentedError_ = errorPresentation(AmbrelRecoveryFailureKind::generic);
    }
}

RecoveryViewModel::~RecoveryViewModel() {
    assertMainThread();
    cancelRunningOperation();
    dropCredentialSession();
}

void RecoveryViewModel::setFactor(AmbrelRecoveryAppFactor factor) {
    publish(factor_, factor);
}

void RecoveryViewModel::setCredential(SecretText credential) {
    publish(credential_, std::move(credential));
}

void RecoveryViewModel::setSelectedSnapshotCode(std::optional<std::string> code) {
    publish(selectedSnapshotCode_, std::move(code));
}

void RecoveryViewModel::dismissPresentedError() {
    publish(presentedError_, std::nullopt);
}

bool RecoveryViewModel::isBusy() const {
    assertMainThread();
    return phase_ == Phase::preparingPackage || phase_ == Phase::inspecting || phase_ == Phase::exporting;
}

bool RecoveryViewModel::canInspect() const {
    assertMainThread();
    return packageURL_ && !credential_.isBlank() && !isBusy();
}

bool RecoveryViewModel::canExport() const {
    assertMainThread();
    return inspection_ && selectedSnapshotCode_ && credentialSession_ &&
           credentialSession_->containsCredential(factor_) && !isBusy();
}

void RecoveryViewModel::chooseBackup() {
    assertMainThread();
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
    assertMainThread();
    if (isBusy()) {
        return;
    }
    if (!isPackageDirectory(chosen)) {
        publish(presentedError_, errorPresentation(AmbrelRecoveryFailureKind::invalidPackage));
        return;
    }
    publish(packageURL_, standardized(chosen));
    forgetPackageContents();
    publish(phase_, Phase::chooseBackup);
    publish(presentedError_, std::nullopt);
}

void RecoveryViewModel::inspectBackup() {
    assertMainThread();
    if (!runner_ || !canInspect()) {
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
    assertMainThread();
    if (!packageURL_ || !runner_ || !canExport()) {
        return;
    }
    desktop_.panels.chooseDestination({.title = AmbrelStrings::localized(AmbrelStrings::filesExportChooseDestination()),
                                       .prompt = AmbrelStrings::localized(AmbrelStrings::filesExportStart()),
                                       .proposedName = QStringLiteral("Ambrel Recovered")},
                                      [model = QPointer(this)](const std::optional<Path>& chosen) {
                                          if (model && chosen) {
                                              model->exportTo(*chosen);
                                          }
                                      });
}

void RecoveryViewModel::exportTo(const Path& chosen) {
    // The panel may have stood open while assistive technology pressed something behind it.
    if (!packageURL_ || !canExport()) {
        return;
    }
    if (isTaken(chosen)) {
        publish(presentedError_, errorPresentation(AmbrelRecoveryFailureKind::destinationExists));
        return;
    }
    publish(destinationURL_, standardized(chosen));
    publish(presentedError_, std::nullopt);
    publish(phase_, Phase::exporting);
    startExport(chosen);
}

void RecoveryViewModel::openRecoveredFolder() {
    assertMainThread();
    if (destinationURL_) {
        desktop_.fileViewer.reveal(*destinationURL_);
    }
}

void RecoveryViewModel::startAgain() {
    assertMainThread();
    cancelRunningOperation();
    publish(packageURL_, std::nullopt);
    forgetPackageContents();
    publish(presentedError_, std::nullopt);
    publish(phase_, Phase::chooseBackup);
}

void RecoveryViewModel::cancelOperation() {
    assertMainThread();
    cancelRunningOperation();
    publish(packagePreparationProgress_, std::nullopt);
    if (!inspection_) {
        dropCredentialSession();
    }
    publish(phase_, inspection_ ? Phase::snapshots : Phase::chooseBackup);
}

QString RecoveryViewModel::formattedPercent(double fraction) const {
    return RecoveryFormats::percent(fraction, AmbrelStrings::currentFormattingLocale());
}

QString RecoveryViewModel::formattedDate(std::int64_t milliseconds) const {
    return RecoveryFormats::date(milliseconds, AmbrelStrings::currentFormattingLocale());
}

void RecoveryViewModel::forgetPackageContents() {
    publish(inspection_, nullptr);
    publish(selectedSnapshotCode_, std::nullopt);
    publish(destinationURL_, std::nullopt);
    publish(exportResult_, std::nullopt);
    publish(packagePreparationProgress_, std::nullopt);
    publish(credential_, SecretText());
    dropCredentialSession();
}

/// Stops the operation first and the engine then, so that an engine that is being launched meanwhile sees the stop.
void RecoveryViewModel::cancelRunningOperation() {
    operationTask_.request_stop();
    if (runner_) {
        runner_->cancelCurrentOperation();
    }
}

void RecoveryViewModel::dropCredentialSession() {
    if (credentialSession_) {
        credentialSession_->invalidate();
        credentialSession_.reset();
    }
}
