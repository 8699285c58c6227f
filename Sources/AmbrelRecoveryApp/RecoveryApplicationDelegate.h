#pragma once

#include <QPointer>

#include <memory>

class DesktopFileViewer;
class DesktopNotifier;
class DesktopPreferences;
class DesktopSleepInhibitor;
class OperationObserver;
class RecoveryPanels;
class RecoveryRootView;
class RecoveryViewModel;
class RecoveryWindow;

/// Creates the application's window and workflow. Main thread only.
class RecoveryApplicationDelegate {
public:
    RecoveryApplicationDelegate();
    RecoveryApplicationDelegate(const RecoveryApplicationDelegate&) = delete;
    RecoveryApplicationDelegate& operator=(const RecoveryApplicationDelegate&) = delete;

    /// Closes the window and ends the workflow. Asks a running engine to end, without waiting for it.
    ~RecoveryApplicationDelegate();

    /// Locates the engine and opens the window. A missing engine does not prevent the start: the workflow reports it.
    void applicationDidFinishLaunching();

    /// Stops the running operation and wipes all secrets, for when the process ends without returning from the event
    /// loop. Asks a running engine to end, without waiting for it.
    void applicationWillTerminate();

    /// Whether closing the window ends the application; always true.
    bool applicationShouldTerminateAfterLastWindowClosed() const;

private:
    void showView();
    void observeOperations();

    // In order of dependency.
    std::unique_ptr<RecoveryWindow> window_;
    /// The window's content.
    QPointer<RecoveryRootView> view_;
    std::unique_ptr<RecoveryPanels> panels_;
    std::unique_ptr<DesktopFileViewer> fileViewer_;
    std::unique_ptr<RecoveryViewModel> model_;
    std::unique_ptr<DesktopPreferences> desktopPreferences_;
    std::unique_ptr<DesktopSleepInhibitor> sleepInhibitor_;
    std::unique_ptr<DesktopNotifier> notifier_;
    std::unique_ptr<OperationObserver> operationObserver_;
};
