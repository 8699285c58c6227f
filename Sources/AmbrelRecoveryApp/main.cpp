#include "AmbrelRecoveryApp/Model/BackgroundTask.h"
#include "AmbrelRecoveryApp/ProcessSetup.h"
#include "AmbrelRecoveryApp/RecoveryApplicationDelegate.h"
#include "AmbrelRecoveryApp/SelfTestMode.h"
#include "AmbrelRecoveryApp/TerminationSignals.h"

#include <QApplication>

#include <chrono>
#include <cstdlib>
#include <span>

namespace {

/// How long the end of the process waits for an engine that was asked to end.
constexpr std::chrono::seconds endOfProcessWait(5);

int runApplication(int argumentCount, char** arguments) {
    // The same window everywhere: the desktop's own style plays no part in it.
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication application(argumentCount, arguments);
    const TerminationSignals terminationSignals;
    {
        RecoveryApplicationDelegate delegate;
        delegate.applicationDidFinishLaunching();
        QApplication::exec();
    }
    if (!BackgroundTask::waitForAll(endOfProcessWait)) {
        // Threads that still wait for the engine would find the application gone.
        std::_Exit(EXIT_SUCCESS);
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argumentCount, char** arguments) {
    ProcessSetup::prepare();
    if (SelfTestMode::isRequested({arguments, static_cast<std::size_t>(argumentCount)})) {
        return SelfTestMode::run();
    }
    return runApplication(argumentCount, arguments);
}
