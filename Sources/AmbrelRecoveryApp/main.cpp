#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "AmbrelRecoveryApp/RecoveryApplicationDelegate.h"
#include "AmbrelRecoveryApp/Secrets/PlugInFolders.h"
#include "AmbrelRecoveryApp/Secrets/ProcessSetup.h"
#include "AmbrelRecoveryApp/SelfTestMode.h"
#include "AmbrelRecoveryApp/TerminationSignals.h"
#include "AmbrelRecoveryAppSupport/EngineProcess.h"
#include "AmbrelRecoveryAppSupport/PrivateOutputDirectory.h"

#include <QApplication>

#include <array>
#include <chrono>
#include <cstdlib>
#include <future>
#include <span>
#include <system_error>

namespace {

/// How long the end of the process waits for an engine that was asked to end, and then for the removal of what a killed
/// engine left behind.
constexpr std::chrono::seconds endOfProcessWait(5);

/// The current delegate, or null.
RecoveryApplicationDelegate* livingDelegate = nullptr;

/// Waits for background work for a limited time. An engine that has not ended by then is killed, so that no export
/// continues without a window.
void finishBackgroundWork(int status) {
    if (BackgroundTask::waitForAll(endOfProcessWait)) {
        return;
    }
    EngineProcess::killAll();
    if (!BackgroundTask::waitForAll(endOfProcessWait)) {
        // Kills an engine that was still being launched before.
        EngineProcess::killAll();
        // Threads that still wait for the engine must not run while the application is being destroyed.
        std::_Exit(status);
    }
}

/// Qt ends the process when it loses the display, as at the end of some sessions.
void endWithoutDisplay() {
    if (livingDelegate != nullptr) {
        livingDelegate->applicationWillTerminate();
        finishBackgroundWork(EXIT_FAILURE);
    }
}

/// Runs in parallel with the first picture: its duration depends on what else is in the temporary directory.
void removeWhatKilledApplicationsLeft() {
    try {
        BackgroundTask::run(PrivateOutputDirectory::removeAbandoned, [](const std::future<void>&) {});
    } catch (const std::system_error&) {
        // No thread is available: left to the next start.
    }
}

/// Qt gets only the program's name: it would interpret some arguments as its own options.
int runApplication(char* programName) {
    PlugInFolders::useSystemsAlone();
    // The same look everywhere, independent of the desktop's style.
    QApplication::setStyle(QStringLiteral("Fusion"));
    std::array<char*, 2> arguments = {programName, nullptr};
    int argumentCount = programName == nullptr ? 0 : 1;
    QApplication application(argumentCount, arguments.data());
    const TerminationSignals terminationSignals;
    {
        RecoveryApplicationDelegate delegate;
        delegate.applicationDidFinishLaunching();
        livingDelegate = &delegate;
        std::atexit(endWithoutDisplay);
        removeWhatKilledApplicationsLeft();
        QApplication::exec();
        livingDelegate = nullptr;
    }
    finishBackgroundWork(EXIT_SUCCESS);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argumentCount, char** arguments) {
    ProcessSetup::prepare();
    if (SelfTestMode::isRequested({arguments, static_cast<std::size_t>(argumentCount)})) {
        return SelfTestMode::run();
    }
    return runApplication(arguments[0]);
}
