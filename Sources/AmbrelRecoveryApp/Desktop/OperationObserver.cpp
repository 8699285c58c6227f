#include "AmbrelRecoveryApp/Desktop/OperationObserver.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Desktop/OperationNotifier.h"
#include "AmbrelRecoveryApp/Desktop/RecoverySleepInhibitor.h"

#include <QEvent>

#include <utility>

namespace {

using AmbrelStrings::localized;
using Phase = RecoveryViewModel::Phase;

QString reason(Phase phase) {
    return localized(phase == Phase::exporting ? AmbrelStrings::filesExportRunning()
                                               : AmbrelStrings::recoveryInspecting());
}

} // namespace

OperationObserver::OperationObserver(const RecoveryViewModel& model, QWidget* window,
                                     RecoverySleepInhibitor& sleepInhibitor, OperationNotifier& notifications)
    : model_(model), window_(window), sleepInhibitor_(sleepInhibitor), notifications_(notifications), last_(look()) {
    window->installEventFilter(this);
    connect(&model_, &RecoveryViewModel::aboutToChange, this, &OperationObserver::scheduleLook);
}

OperationObserver::~OperationObserver() {
    sleepInhibitor_.end();
    notifications_.withdraw();
}

OperationObserver::Look OperationObserver::look() const {
    return {.phase = model_.phase(),
            .isBusy = model_.isBusy(),
            .inspection = model_.inspection(),
            .error = model_.presentedError()};
}

void OperationObserver::scheduleLook() {
    if (!std::exchange(isLookScheduled_, true)) {
        QMetaObject::invokeMethod(this, &OperationObserver::lookAgain, Qt::QueuedConnection);
    }
}

void OperationObserver::lookAgain() {
    isLookScheduled_ = false;
    const Look before = std::exchange(last_, look());
    if (last_.isBusy) {
        sleepInhibitor_.begin(reason(last_.phase));
        if (!before.isBusy) {
            notifications_.withdraw();
        }
        return;
    }
    sleepInhibitor_.end();
    const std::optional<QString> text = before.isBusy ? outcome(before, last_) : std::nullopt;
    if (text && window_ && !window_->isActiveWindow()) {
        notifications_.show(*text, [this] { bringWindowForward(); });
    }
}

std::optional<QString> OperationObserver::outcome(const Look& before, const Look& after) {
    if (after.error && after.error != before.error) {
        return after.error->title;
    }
    if (after.phase == Phase::complete) {
        return localized(AmbrelStrings::filesExportCompletedTitle());
    }
    if (after.phase == Phase::snapshots && after.inspection != before.inspection) {
        return localized(AmbrelStrings::recoverySnapshotsTitle());
    }
    return std::nullopt;
}

void OperationObserver::bringWindowForward() {
    if (window_) {
        window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
        window_->show();
        window_->raise();
        window_->activateWindow();
    }
}

bool OperationObserver::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        notifications_.withdraw();
    }
    return QObject::eventFilter(object, event);
}
