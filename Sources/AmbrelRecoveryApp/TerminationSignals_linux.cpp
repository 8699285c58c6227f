#include "AmbrelRecoveryApp/TerminationSignals.h"

#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array terminationSignals = {SIGHUP, SIGINT, SIGTERM};

/// A pipe from the signal handler to the event loop; open until the process ends.
std::array<int, 2> pipeEnds = {-1, -1};

/// Async-signal-safe: runs in the signal handler.
void notifyEventLoop(int) {
    const char anything = 0;
    // If the pipe is full, the event loop is already notified.
    [[maybe_unused]] const ssize_t count = write(pipeEnds[1], &anything, sizeof(anything));
}

void setHandler(int signal, void (*handler)(int)) {
    struct sigaction current {};
    sigaction(signal, nullptr, &current);
    if (current.sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals() {
    MainThread::require();
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    auto* const notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier] {
        notifier->setEnabled(false);
        QCoreApplication::exit();
    });
    for (const int signal : terminationSignals) {
        setHandler(signal, notifyEventLoop);
    }
}

TerminationSignals::~TerminationSignals() {
    for (const int signal : terminationSignals) {
        setHandler(signal, SIG_DFL);
    }
}
