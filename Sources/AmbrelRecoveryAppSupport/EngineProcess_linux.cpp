#include "AmbrelRecoveryAppSupport/EngineProcess.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <mutex>
#include <set>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

// Before version 2.37, this C library header does not declare C linkage for its functions.
extern "C" {
#include <sys/pidfd.h>

/// Alias of clone(). The thread sanitizer intercepts clone() and treats every new process as a copy of this one, which
/// is wrong for a process that shares the memory.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
int __clone(int (*function)(void*), void* stack, int flags, void* context, ...) noexcept;
}

namespace {

/// The data that the new process needs to become the engine. It shares memory with the launching thread, which is
/// suspended until the new process has executed the engine or given up.
struct Becoming {
    const EngineProcess::Configuration& configuration;
    char* const* arguments;
    pid_t application;
    bool failed = false;
};

/// Restores a signal's default action. Uses the system call, because the C library's function refuses the two signals
/// that it reserves for itself, and those could be ignored, too. Async-signal-safe: runs between clone and exec.
void restoreDefaultAction(int signal) {
    // The kernel's structure is smaller; all zeros mean the default action.
    const std::array<unsigned long, 8> defaultAction{};
    constexpr std::size_t maskSize = 8;
    syscall(SYS_rt_sigaction, signal, defaultAction.data(), nullptr, maskSize);
}

/// Async-signal-safe: runs between clone and exec.
bool redirect(long source, int stream) {
    return source == stream || (source >= 0 && syscall(SYS_dup3, source, stream, 0) >= 0);
}

/// The new process before it executes the engine. Async-signal-safe: runs between clone and exec. Only system calls are
/// allowed here: other threads may hold locks that are never released, and sanitizer functions would mistake this
/// process for the launching thread.
__attribute__((no_sanitize("address", "thread", "undefined"))) int becomeEngine(void* context) {
    auto& becoming = *static_cast<Becoming*>(context);
    const EngineProcess::Configuration& configuration = becoming.configuration;
    // The engine must not outlive the application, however that ends.
    syscall(SYS_prctl, PR_SET_PDEATHSIG, SIGTERM, 0, 0, 0);
    constexpr int signalCount = 64;
    for (int signal = 1; signal <= signalCount; ++signal) {
        restoreDefaultAction(signal);
    }
    const long input = configuration.standardInput >= 0 ? configuration.standardInput
                                                        : syscall(SYS_openat, AT_FDCWD, "/dev/null", O_RDONLY, 0);
    if (syscall(SYS_getppid) == becoming.application && redirect(input, STDIN_FILENO) &&
        redirect(configuration.standardOutput, STDOUT_FILENO) && redirect(configuration.standardError, STDERR_FILENO) &&
        // Libraries of the application may hold descriptors that are not marked close-on-exec.
        syscall(SYS_close_range, STDERR_FILENO + 1, ~0U, 0) == 0) {
        const std::uint64_t nothing = 0;
        syscall(SYS_rt_sigprocmask, SIG_SETMASK, &nothing, nullptr, sizeof nothing);
        syscall(SYS_execve, configuration.executable.c_str(), becoming.arguments, environ);
    }
    becoming.failed = true;
    syscall(SYS_exit_group, EXIT_FAILURE);
    return EXIT_FAILURE;
}

/// Blocks all signals on the calling thread during its lifetime: a handler must not run in the new process, which still
/// shares all memory.
class SignalBlock {
public:
    SignalBlock() {
        sigset_t every;
        sigfillset(&every);
        pthread_sigmask(SIG_SETMASK, &every, &previous_);
    }
    SignalBlock(const SignalBlock&) = delete;
    SignalBlock& operator=(const SignalBlock&) = delete;
    ~SignalBlock() { pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }

private:
    sigset_t previous_{};
};

/// Starts the process and returns its descriptor, or a negative number.
int startProcess(Becoming& becoming) {
    // Enough for the few calls of becomeEngine() and for the dynamic linker, which may resolve them there.
    alignas(16) std::array<std::byte, 65536> stack;
    int descriptor = -1;
    const SignalBlock block;
    const int started = __clone(becomeEngine, stack.data() + stack.size(),
                                CLONE_VM | CLONE_VFORK | CLONE_PIDFD | SIGCHLD, &becoming, &descriptor);
    return started < 0 ? -1 : descriptor;
}

bool wouldArriveShortened(const std::string& argument) {
    return argument.find('\0') != std::string::npos;
}

std::vector<char*> argumentVector(const EngineProcess::Configuration& configuration) {
    std::vector<char*> vector;
    vector.reserve(configuration.arguments.size() + 2);
    // exec takes non-const strings for historical reasons; nobody writes through these pointers.
    vector.push_back(const_cast<char*>(configuration.executable.c_str()));
    for (const std::string& argument : configuration.arguments) {
        vector.push_back(const_cast<char*>(argument.c_str()));
    }
    vector.push_back(nullptr);
    return vector;
}

struct Launched {
    std::mutex mutex;
    std::set<const EngineProcess*> engines;
};

/// All launched engines that have not been destroyed. Never destroyed itself, since threads may outlive main().
Launched& launched() {
    static auto* const launched = new Launched;
    return *launched;
}

} // namespace

EngineProcess::EngineProcess(Configuration configuration) : configuration_(std::move(configuration)) {}

EngineProcess::~EngineProcess() {
    if (running_) {
        requestTermination();
        waitForExit();
    }
    {
        const std::lock_guard lock(launched().mutex);
        launched().engines.erase(this);
    }
    UniqueDescriptor closing(processDescriptor_.exchange(-1));
}

void EngineProcess::launch() {
    if (std::ranges::any_of(configuration_.arguments, wouldArriveShortened)) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    const std::vector<char*> arguments = argumentVector(configuration_);
    {
        const std::lock_guard lock(launched().mutex);
        launched().engines.insert(this);
    }
    Becoming becoming{configuration_, arguments.data(), getpid()};
    const int descriptor = startProcess(becoming);
    if (descriptor < 0) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    running_ = true;
    processDescriptor_ = descriptor;
    if (becoming.failed) {
        waitForExit();
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    if (terminationRequested_) {
        requestTermination();
    }
}

void EngineProcess::requestTermination() noexcept {
    terminationRequested_ = true;
    const int descriptor = processDescriptor_;
    if (descriptor >= 0) {
        pidfd_send_signal(descriptor, SIGTERM, nullptr, 0);
    }
}

void EngineProcess::killAll() noexcept {
    const std::lock_guard lock(launched().mutex);
    for (const EngineProcess* const engine : launched().engines) {
        const int descriptor = engine->processDescriptor_;
        if (descriptor >= 0) {
            pidfd_send_signal(descriptor, SIGKILL, nullptr, 0);
        }
    }
}

bool EngineProcess::waitForExit(std::chrono::milliseconds limit, int writable) {
    if (running_) {
        // poll() ignores negative descriptors.
        std::array<pollfd, 2> events{{{processDescriptor_, POLLIN, 0}, {writable, POLLOUT, 0}}};
        if (poll(events.data(), events.size(), static_cast<int>(limit.count())) < 0 && errno != EINTR) {
            // If poll() runs out of memory, a caller that waits in a loop must not use all of the processor.
            std::this_thread::sleep_for(std::min(limit, std::chrono::milliseconds(10)));
        }
        reap(WNOHANG);
    }
    return !running_;
}

void EngineProcess::waitForExit() {
    while (running_) {
        reap(0);
    }
}

void EngineProcess::reap(int options) {
    siginfo_t information{};
    const auto descriptor = static_cast<id_t>(processDescriptor_.load());
    if (waitid(P_PIDFD, descriptor, &information, WEXITED | options) != 0) {
        // EINTR: still running. Any other error means that the status was collected elsewhere, so there is nothing to
        // wait for.
        if (errno != EINTR) {
            running_ = false;
            terminationStatus_ = -1;
        }
    } else if (information.si_pid != 0) {
        running_ = false;
        terminationStatus_ = information.si_status;
    }
}
