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

/// How long the end of the process waits for an engine that was asked to end, and for what one that was killed leaves
/// to be removed.
constexpr std::chrono::seconds endOfProcessWait(5);

/// The delegate while there is one.
RecoveryApplicationDelegate* livingDelegate = nullptr;

/// Waits for what still runs, at most for a bounded time. An engine that has not ended by then is killed, so that no
/// export goes on behind the user's back.
void finishBackgroundWork(int status) {
    if (BackgroundTask::waitForAll(endOfProcessWait)) {
        return;
    }
    EngineProcess::killAll();
    if (!BackgroundTask::waitForAll(endOfProcessWait)) {
        // One that was only being launched a moment ago.
        EngineProcess::killAll();
        // Threads that still wait for the engine would find the application gone.
        std::_Exit(status);
    }
}

/// The toolkit ends the process by itself when it loses the display, as it does at the end of some sessions.
void endWithoutDisplay() {
    if (livingDelegate != nullptr) {
        livingDelegate->applicationWillTerminate();
        finishBackgroundWork(EXIT_FAILURE);
    }
}

/// Beside the first picture and not before it: how long it takes depends on what else lies in the temporary directory.
void removeWhatKilledApplicationsLeft() {
    try {
        BackgroundTask::run(PrivateOutputDirectory::removeAbandoned, [](const std::future<void>&) {});
    } catch (const std::system_error&) {
        // Without a thread it is left to the next start.
    }
}

/// The toolkit gets no argument but the program's name: it would take some of them for options of its own.
int runApplication(char* programName) {
    PlugInFolders::useSystemsAlone();
    // The same window everywhere: the desktop's own style plays no part in it.
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
