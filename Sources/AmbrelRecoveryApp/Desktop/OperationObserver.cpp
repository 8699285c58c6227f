#include "AmbrelRecoveryApp/Desktop/OperationObserver.h"

#include "AmbrelLocalization/AmbrelStrings.h"

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

OperationObserver::OperationObserver(const RecoveryViewModel& model, QWidget& window)
    : model_(model), window_(window), last_(look()) {
    window_.installEventFilter(this);
    connect(&model_, &RecoveryViewModel::aboutToChange, this, &OperationObserver::scheduleLook);
}

OperationObserver::Look OperationObserver::look() const {
    return {.phase = model_.phase(), .inspection = model_.inspection(), .error = model_.presentedError()};
}

void OperationObserver::scheduleLook() {
    if (!std::exchange(isLookScheduled_, true)) {
        QMetaObject::invokeMethod(this, &OperationObserver::lookAgain, Qt::QueuedConnection);
    }
}

void OperationObserver::lookAgain() {
    isLookScheduled_ = false;
    const Look before = std::exchange(last_, look());
    const bool wasBusy = RecoveryViewModel::isBusy(before.phase);
    if (model_.isBusy() == wasBusy) {
        return;
    }
    if (!wasBusy) {
        emit notificationOutdated();
        emit operationBegan(reason(last_.phase));
        return;
    }
    emit operationEnded();
    const std::optional<QString> text = outcome(before, last_);
    if (text && !window_.isActiveWindow()) {
        emit notificationWanted(*text);
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
    window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
    window_.show();
    window_.raise();
    window_.activateWindow();
}

bool OperationObserver::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        emit notificationOutdated();
    }
    return QObject::eventFilter(object, event);
}
