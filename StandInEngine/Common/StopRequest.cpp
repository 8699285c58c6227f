#include "Common/StopRequest.h"

#include "Common/Stopped.h"

#include <atomic>
#include <csignal>

#include <unistd.h>

namespace {

std::atomic<int> requestedSignal = 0;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may only touch lock-free atomics");

// Async-signal-safe: runs in the signal handler.
extern "C" void rememberSignal(int signal) {
    requestedSignal = signal;
}

} // namespace

void StopRequest::record() {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction current = {};
        ::sigaction(signal, nullptr, &current);
        if (current.sa_handler == SIG_IGN) {
            continue;
        }
        struct sigaction action = {};
        action.sa_handler = rememberSignal;
        // Without SA_RESTART, so that a blocked write returns.
        ::sigemptyset(&action.sa_mask);
        ::sigaction(signal, &action, nullptr);
    }
}

void StopRequest::throwIfRequested() {
    if (const int signal = requestedSignal; signal != 0) {
        throw Stopped{signal};
    }
}

void StopRequest::endBySignal(int signal) {
    std::signal(signal, SIG_DFL);
    sigset_t set;
    ::sigemptyset(&set);
    ::sigaddset(&set, signal);
    ::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
    std::raise(signal);
    ::_exit(128 + signal);
}
