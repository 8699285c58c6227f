#pragma once

#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"
#include "AmbrelRecoveryApp/Model/RecoveryChosenPath.h"
#include "AmbrelRecoveryApp/Model/RecoveryEngineRun.h"
#include "AmbrelRecoveryApp/Secrets/SecretText.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryAppFactor.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExportDocument.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryInspectionDocument.h"

#include <QObject>
#include <QString>
#include <QUuid>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

class AmbrelRecoveryCredentialSession;
class CloudItems;
class RecoveryEngine;
class RecoveryFileViewer;
class RecoveryPanels;

/// Controls the workflow of a recovery: choose a package, type the credential, inspect, pick a snapshot, choose a
/// destination, export, show the result. Owns all workflow state; the screens read it and call its operations. Lives on
/// the main thread; all members except the static ones are called there. A call on another thread that would change or
/// start something aborts the program.
class RecoveryViewModel final : public QObject {
    Q_OBJECT

public:
    /// The current step of the workflow.
    enum class Phase { chooseBackup, preparingPackage, inspecting, snapshots, exporting, complete };

    /// An error as shown to the user, in the interface language at the time it was created.
    struct PresentedError {
        /// Unique for every presentation: the same failure shown twice is two errors.
        QUuid id;
        QString title;
        QString body;

        bool operator==(const PresentedError&) const = default;
    };

    /// The parts of the desktop that the workflow uses. The panels and the viewer must outlive the model.
    struct Desktop {
        RecoveryPanels& panels;
        RecoveryFileViewer& fileViewer;
        /// Shared with preparations that may outlive the model.
        std::shared_ptr<CloudItems> cloudItems;
    };

    /// A model for the engine at `executableURL`, a file path. Without one, the generic error is presented immediately,
    /// and inspecting and exporting do nothing.
    RecoveryViewModel(const std::optional<std::filesystem::path>& executableURL, Desktop desktop);

    /// A model that uses `engine`; null means that there is no engine.
    RecoveryViewModel(std::shared_ptr<RecoveryEngine> engine, Desktop desktop);

    /// Cancels the running operation and wipes the credential.
    ~RecoveryViewModel() override;

    Phase phase() const { return phase_; }
    /// The chosen package: an absolute path without "." and "..".
    const std::optional<std::filesystem::path>& packageURL() const { return packageURL_; }
    AmbrelRecoveryAppFactor factor() const { return factor_; }
    /// The text in the entry field; cleared as soon as an inspection starts.
    const SecretText& credential() const { return credential_; }
    /// The accepted inspection, or null.
    const std::shared_ptr<const AmbrelRecoveryInspectionDocument>& inspection() const { return inspection_; }
    const std::optional<std::string>& selectedSnapshotCode() const { return selectedSnapshotCode_; }
    /// The destination folder of the export: an absolute path without "." and "..".
    const std::optional<std::filesystem::path>& destinationURL() const { return destinationURL_; }
    const std::shared_ptr<const AmbrelRecoveryExportDocument>& exportResult() const { return exportResult_; }
    /// The downloaded fraction of the package, 0 to 1; std::nullopt if unknown or if nothing is being prepared.
    const std::optional<double>& packagePreparationProgress() const { return packagePreparationProgress_; }
    const std::optional<PresentedError>& presentedError() const { return presentedError_; }

    /// Ignored while busy.
    void setFactor(AmbrelRecoveryAppFactor factor);
    /// Ignored while busy.
    void setCredential(SecretText credential);
    /// Ignored while exporting.
    void setSelectedSnapshotCode(std::optional<std::string> code);
    void dismissPresentedError();

    /// Whether a long operation is running: a package is being prepared or inspected, or a snapshot exported.
    bool isBusy() const { return isBusy(phase_); }
    /// Whether a long operation is running in `phase`. Any thread.
    static bool isBusy(Phase phase);
    bool canInspect() const;
    bool canExport() const;

    /// Lets the user choose a package. Ignored while busy.
    void chooseBackup();
    /// Accepts `chosen` as the package if it is a directory with the extension "ambrel"; otherwise presents an error.
    /// The check is asynchronous, and its result is dropped if the user moves on first: with another choice, another
    /// step or a cancellation. Ignored while busy.
    void acceptPackage(const std::filesystem::path& chosen);
    /// Prepares and inspects the package with the typed credential. Ignored unless canInspect().
    void inspectBackup();
    /// Lets the user name a new folder and exports the selected snapshot into it. First checks asynchronously that the
    /// folder does not exist and is not inside the package; the result is dropped if the user moves on first. Ignored
    /// unless canExport().
    void chooseDestinationAndExport();
    /// Shows the exported folder in the file viewer.
    void openRecoveredFolder();
    /// Cancels the running operation and starts over; only the factor is kept.
    void startAgain();
    /// Cancels the running operation. An accepted inspection and its credential are kept.
    void cancelOperation();

    /// Formats a fraction as a whole percentage in the interface language, not clamped. Any thread.
    static QString formattedPercent(double fraction);
    /// Formats a time, in milliseconds since the Unix epoch, as date and time in the interface language. Any thread.
    static QString formattedDate(std::int64_t milliseconds);

signals:
    /// A published property is about to change. Read its new value in a later iteration of the event loop.
    void aboutToChange();

private:
    using Accepting = std::function<void(RecoveryViewModel& model, const std::filesystem::path& path)>;
    using Failing = void (RecoveryViewModel::*)(const std::exception_ptr& error);

    template<typename Value, typename NewValue>
    void publish(Value& property, NewValue&& value) {
        MainThread::require();
        emit aboutToChange();
        property = std::forward<NewValue>(value);
    }

    void applyPackage(const std::filesystem::path& package);
    std::optional<std::uint64_t> selectedByteCount() const;
    void exportTo(const std::filesystem::path& chosen);
    /// Starts a new operation in place of the last one and returns its stop token.
    std::stop_token beginOperation();
    /// Runs `work` in the background, then calls `succeed` with its result on the main thread, or `fail` with the
    /// exception that either of them threw. Calls neither if the model has been destroyed or the operation cancelled by
    /// then.
    template<typename Work, typename Succeeding>
    void runStep(const std::stop_token& stopToken, Work work, Succeeding succeed, Failing fail,
                 BackgroundTask::AtEnd atEnd = BackgroundTask::AtEnd::awaited);
    /// Runs `check` in the background, in place of the last operation. Presents its failure, or calls `accept` with the
    /// path. A file system that never answers blocks nothing.
    void checkChoice(std::function<RecoveryChosenPath::Outcome()> check, Accepting accept);
    void startPreparation();
    void startInspection(const std::stop_token& stopToken);
    void startExport(const std::filesystem::path& destination);
    /// Runs the engine as a step with the credential of the session.
    template<typename Document>
    void runEngine(const std::stop_token& stopToken, const std::vector<std::string>& arguments,
                   void (RecoveryViewModel::*apply)(RecoveryEngineRun::Outcome<Document>), Failing fail);
    void applyInspection(RecoveryEngineRun::Outcome<AmbrelRecoveryInspectionDocument> outcome);
    void applyExport(RecoveryEngineRun::Outcome<AmbrelRecoveryExportDocument> outcome);
    void failCheck(const std::exception_ptr& error);
    void failPreparationOrInspection(const std::exception_ptr& error);
    void failExport(const std::exception_ptr& error);
    void presentInspectionFailure(AmbrelRecoveryFailureKind kind);
    void presentExportFailure(AmbrelRecoveryFailureKind kind);
    void forgetPackageContents();
    void cancelRunningOperation();
    void dropCredentialSession();

    Phase phase_ = Phase::chooseBackup;
    std::optional<std::filesystem::path> packageURL_;
    AmbrelRecoveryAppFactor factor_ = AmbrelRecoveryAppFactor::backupPassphrase;
    SecretText credential_;
    std::shared_ptr<const AmbrelRecoveryInspectionDocument> inspection_;
    std::optional<std::string> selectedSnapshotCode_;
    std::optional<std::filesystem::path> destinationURL_;
    std::shared_ptr<const AmbrelRecoveryExportDocument> exportResult_;
    std::optional<double> packagePreparationProgress_;
    std::optional<PresentedError> presentedError_;

    const Desktop desktop_;
    /// Null if there is no engine. Shared with the thread of a running operation.
    const std::shared_ptr<RecoveryEngine> engine_;
    /// Stops the running or last operation. At most one is current: the check of a choice, or a long operation.
    std::stop_source operationTask_{std::nostopstate};
    /// Holds the credential between inspection and export.
    std::shared_ptr<AmbrelRecoveryCredentialSession> credentialSession_;
};
