#include "ScreenWalk.h"

#include "ScreenWalkDocuments.h"

#include <QCoreApplication>
#include <QTest>

#include <optional>

namespace {

struct EngineFailure {
    const char* name;
    const char* text;
    int status = 1;
    AmbrelRecoveryAppFactor factor = AmbrelRecoveryAppFactor::backupPassphrase;
};

/// One for each text that the alert can have after an inspection.
constexpr EngineFailure inspectionFailures[] = {
    {.name = "alert-wrong-passphrase", .text = "did not unlock"},
    {.name = "alert-wrong-recovery-key", .text = "did not unlock", .factor = AmbrelRecoveryAppFactor::recoveryKey},
    {.name = "alert-invalid-package", .text = "invalid or unsupported"},
    {.name = "alert-package-unavailable", .text = "package is unavailable"},
    {.name = "alert-integrity", .text = "integrity verification failed"},
    {.name = "alert-cancelled", .text = "", .status = 15},
    {.name = "alert-generic", .text = "something else"},
};

} // namespace

ScreenWalk::ScreenWalk() {
    // Set once and steered by atomics: a cancelled preparation may still be asking.
    cloudItems->onProperties = [this] { return CloudItems::Properties{.isUbiquitous = isInCloud_.load()}; };
    cloudItems->onPercentDownloaded = [this] {
        const double percent = percentDownloaded_;
        return percent < 0 ? std::nullopt : std::optional(percent);
    };
}

ScreenWalk::~ScreenWalk() {
    view_.reset();
}

void ScreenWalk::visitEveryState(const QSize& size, const Visit& visit) {
    visit_ = visit;
    open(size);
    visitChoosing();
    visitPreparing();
    visitInspecting();
    visitSnapshots();
    visitExporting();
    visitInspectionErrors();
    view_.reset();
    model.reset();
}

void ScreenWalk::open(const QSize& size) {
    makeModel();
    view_ = std::make_unique<RecoveryRootView>(*model);
    view_->resize(size);
    view_->show();
    view_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view_.get()));
}

void ScreenWalk::visit(const QString& name) {
    SCOPED_TRACE(name.toStdString());
    // Once for the redraw, and then for the layouts that it asks for.
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
    }
    visit_(name, *view_);
}

/// Returns once the engine has ended, since only one runs at a time.
void ScreenWalk::cancel() {
    model->cancelOperation();
    waitForWork();
}

void ScreenWalk::visitChoosing() {
    visit(QStringLiteral("choose"));
    model->setFactor(AmbrelRecoveryAppFactor::recoveryKey);
    visit(QStringLiteral("choose-recovery-key"));
    model->setFactor(AmbrelRecoveryAppFactor::backupPassphrase);

    const std::string longName =
        "Photos_of_the_whole_family_and_of_all_our_travels_until_the_summer_of_2026 (2).ambrel";
    std::filesystem::create_directory(path(longName));
    untilAnnounced([&] { model->acceptPackage(path(longName)); });
    visit(QStringLiteral("filled-long-name"));

    choosePackage();
    type(QStringLiteral("correct horse battery"));
    visit(QStringLiteral("filled"));
}

void ScreenWalk::visitPreparing() {
    isInCloud_ = true;
    model->inspectBackup();
    waitForPhase(Phase::preparingPackage);
    visit(QStringLiteral("preparing-unknown"));
    cancel();

    percentDownloaded_ = 42;
    type(QStringLiteral("correct horse battery"));
    model->inspectBackup();
    waitUntil([this] { return model->packagePreparationProgress() == 0.42; });
    visit(QStringLiteral("preparing"));
    cancel();
    isInCloud_ = false;
}

void ScreenWalk::startInspecting() {
    type(QStringLiteral("correct horse battery"));
    model->inspectBackup();
}

void ScreenWalk::visitInspecting() {
    setEngineThatWaits();
    startInspecting();
    waitUntilEngineRuns();
    visit(QStringLiteral("inspecting"));
    cancel();
}

void ScreenWalk::visitSnapshots() {
    inspect(ScreenWalkDocuments::emptyInspection());
    visit(QStringLiteral("snapshots-none"));
    inspect(ScreenWalkDocuments::largeInspection());
    visit(QStringLiteral("snapshots-large"));
    inspect(ScreenWalkDocuments::forkedInspection());
    visit(QStringLiteral("fork"));
    inspect(ScreenWalkDocuments::inspection());
    visit(QStringLiteral("snapshots"));
}

void ScreenWalk::visitExporting() {
    chooseDestination(path("temporary"));
    visit(QStringLiteral("alert-destination"));
    model->dismissPresentedError();

    setEngineThatWaits();
    chooseDestination(path("Ambrel Recovered"));
    waitUntilEngineRuns();
    visit(QStringLiteral("exporting"));
    cancel();

    setEngineThatPrints(ScreenWalkDocuments::exportReport());
    chooseDestination(path("Ambrel Recovered"));
    waitForPhase(Phase::complete);
    visit(QStringLiteral("complete"));
}

void ScreenWalk::visitInspectionErrors() {
    model->startAgain();
    choosePackage();
    for (const EngineFailure& failure : inspectionFailures) {
        setEngineThatFails(failure.text, failure.status);
        model->setFactor(failure.factor);
        startInspecting();
        waitUntil([this] { return model->presentedError().has_value(); });
        visit(QString::fromLatin1(failure.name));
        model->dismissPresentedError();
    }
}
