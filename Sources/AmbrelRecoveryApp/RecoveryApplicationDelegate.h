#pragma once

#include <QPointer>

#include <memory>

class DesktopFileViewer;
class DesktopPreferences;
class OperationObserver;
class OperationNotifier;
class RecoveryPanels;
class RecoveryRootView;
class RecoverySleepInhibitor;
class RecoveryViewModel;
class RecoveryWindow;

/// Builds the application's one window on its one workflow. Main thread only.
class RecoveryApplicationDelegate {
public:
    RecoveryApplicationDelegate();
    RecoveryApplicationDelegate(const RecoveryApplicationDelegate&) = delete;
    RecoveryApplicationDelegate& operator=(const RecoveryApplicationDelegate&) = delete;

    /// Closes the window and ends the workflow: a running engine is asked to end, and is not waited for.
    ~RecoveryApplicationDelegate();

    /// Finds the engine and opens the window. A missing engine does not stop the start: the workflow tells of it.
    void applicationDidFinishLaunching();

    /// Stops what is running and forgets every secret, where the process ends without a return from the event loop. A
    /// running engine is asked to end, and is not waited for.
    void applicationWillTerminate();

    /// Whether closing the one window ends the application: yes.
    bool applicationShouldTerminateAfterLastWindowClosed() const;

private:
    void showView();

    // In the order in which they need each other.
    std::unique_ptr<RecoveryWindow> window_;
    /// The window's content.
    QPointer<RecoveryRootView> view_;
    std::unique_ptr<RecoveryPanels> panels_;
    std::unique_ptr<DesktopFileViewer> fileViewer_;
    std::unique_ptr<RecoveryViewModel> model_;
    std::unique_ptr<DesktopPreferences> desktopPreferences_;
    std::unique_ptr<RecoverySleepInhibitor> sleepInhibitor_;
    std::unique_ptr<OperationNotifier> notifier_;
    std::unique_ptr<OperationObserver> operationObserver_;
};
