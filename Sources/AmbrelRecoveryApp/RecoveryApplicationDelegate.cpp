#include "AmbrelRecoveryApp/RecoveryApplicationDelegate.h"

#include "AmbrelPlatform/ApplicationBundle.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Desktop/DesktopFileViewer.h"
#include "AmbrelRecoveryApp/Desktop/DesktopNotifier.h"
#include "AmbrelRecoveryApp/Desktop/DesktopPreferences.h"
#include "AmbrelRecoveryApp/Desktop/DesktopSleepInhibitor.h"
#include "AmbrelRecoveryApp/Desktop/OperationObserver.h"
#include "AmbrelRecoveryApp/FilePanels/FilePanels.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"
#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"
#include "AmbrelRecoveryApp/Screens/RecoveryRootView.h"
#include "AmbrelRecoveryApp/Screens/RecoveryWindow.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExecutableLocator.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/CloudItems.h"

#include <QApplication>

#include <filesystem>
#include <optional>

namespace {

std::optional<std::filesystem::path> engine() {
    try {
        return AmbrelRecoveryExecutableLocator::bundledExecutable(ApplicationBundle::mainBundle());
    } catch (AmbrelRecoveryProcessError) {
        return std::nullopt;
    }
}

} // namespace

RecoveryApplicationDelegate::RecoveryApplicationDelegate() = default;

RecoveryApplicationDelegate::~RecoveryApplicationDelegate() {
    operationObserver_.reset();
    // While the other parts are being destroyed, the request to remove the notification can be sent.
    notifier_.reset();
    // The view uses the model as long as it exists.
    window_.reset();
}

void RecoveryApplicationDelegate::applicationDidFinishLaunching() {
    MainThread::require();
    QApplication::setQuitOnLastWindowClosed(applicationShouldTerminateAfterLastWindowClosed());
    // If Qt draws the window frame, as on some Wayland desktops, it uses the colors of the application palette.
    QApplication::setPalette(RecoveryPalette::ofToolkit());
    window_ = std::make_unique<RecoveryWindow>();
    panels_ = std::make_unique<FilePanels>(window_.get());
    fileViewer_ = std::make_unique<DesktopFileViewer>();
    model_ = std::make_unique<RecoveryViewModel>(
        engine(), RecoveryViewModel::Desktop{*panels_, *fileViewer_, std::make_shared<CloudItems>()});
    showView();
    desktopPreferences_ = std::make_unique<DesktopPreferences>();
    QObject::connect(desktopPreferences_.get(), &DesktopPreferences::lookChanged, window_.get(),
                     [this] { showView(); });
    observeOperations();
    window_->center();
    window_->show();
    window_->raise();
    window_->activateWindow();
}

/// Apart from the model's state, a view has one piece of state: the path that it was asked to show.
void RecoveryApplicationDelegate::showView() {
    const std::optional<std::filesystem::path> shownPath = view_ ? view_->shownPath() : std::nullopt;
    view_ = new RecoveryRootView(*model_);
    window_->setContent(view_);
    QObject::connect(fileViewer_.get(), &DesktopFileViewer::revealUnconfirmed, view_, &RecoveryRootView::showPath);
    if (shownPath) {
        view_->showPath(*shownPath);
    }
}

void RecoveryApplicationDelegate::observeOperations() {
    sleepInhibitor_ = std::make_unique<DesktopSleepInhibitor>();
    notifier_ = std::make_unique<DesktopNotifier>();
    operationObserver_ = std::make_unique<OperationObserver>(*model_, *window_);
    const OperationObserver* const observer = operationObserver_.get();
    QObject::connect(observer, &OperationObserver::operationBegan, sleepInhibitor_.get(),
                     &DesktopSleepInhibitor::begin);
    QObject::connect(observer, &OperationObserver::operationEnded, sleepInhibitor_.get(), &DesktopSleepInhibitor::end);
    QObject::connect(observer, &OperationObserver::notificationWanted, notifier_.get(), &DesktopNotifier::show);
    QObject::connect(observer, &OperationObserver::notificationOutdated, notifier_.get(), &DesktopNotifier::withdraw);
    QObject::connect(notifier_.get(), &DesktopNotifier::activated, operationObserver_.get(),
                     &OperationObserver::bringWindowForward);
}

void RecoveryApplicationDelegate::applicationWillTerminate() {
    MainThread::require();
    if (model_) {
        model_->startAgain();
    }
}

bool RecoveryApplicationDelegate::applicationShouldTerminateAfterLastWindowClosed() const {
    MainThread::require();
    return true;
}
