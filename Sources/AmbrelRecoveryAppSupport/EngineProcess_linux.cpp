#include "AmbrelRecoveryAppSupport/EngineProcess.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// Before version 2.37 the C library's header does not say that its functions have C linkage.
extern "C" {
#include <sys/pidfd.h>
}

namespace {

void require(int error) {
    if (error != 0) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
}

/// What happens to the descriptors of the new process before it runs the engine.
class FileActions {
public:
    FileActions() { require(posix_spawn_file_actions_init(&actions_)); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }

    posix_spawn_file_actions_t* get() { return &actions_; }

private:
    posix_spawn_file_actions_t actions_;
};

void redirectStreams(FileActions& actions, const EngineProcess::Configuration& configuration) {
    if (configuration.standardInput < 0) {
        require(posix_spawn_file_actions_addopen(actions.get(), STDIN_FILENO, "/dev/null", O_RDONLY, 0));
    } else {
        require(posix_spawn_file_actions_adddup2(actions.get(), configuration.standardInput, STDIN_FILENO));
    }
    require(posix_spawn_file_actions_adddup2(actions.get(), configuration.standardOutput, STDOUT_FILENO));
    require(posix_spawn_file_actions_adddup2(actions.get(), configuration.standardError, STDERR_FILENO));
    // Libraries of the application may hold descriptors that are not marked to close on exec.
    require(posix_spawn_file_actions_addclosefrom_np(actions.get(), STDERR_FILENO + 1));
}

/// Gives the new process the signal state of a freshly logged-in user: nothing blocked, nothing ignored.
class DefaultSignals {
public:
    DefaultSignals() {
        require(posix_spawnattr_init(&attributes_));
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        // sigfillset() leaves out the two signals of the C library, which posix_spawn would then leave ignored.
        std::memset(&signals, 0xFF, sizeof signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }

    DefaultSignals(const DefaultSignals&) = delete;
    DefaultSignals& operator=(const DefaultSignals&) = delete;
    ~DefaultSignals() { posix_spawnattr_destroy(&attributes_); }

    const posix_spawnattr_t* get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_;
};

bool wouldArriveShortened(const std::string& argument) {
    return argument.find('\0') != std::string::npos;
}

std::vector<char*> argumentVector(const EngineProcess::Configuration& configuration) {
    std::vector<char*> vector;
    vector.reserve(configuration.arguments.size() + 2);
    // The spawn call's type is older than const; it does not write through these pointers.
    vector.push_back(const_cast<char*>(configuration.executable.c_str()));
    for (const std::string& argument : configuration.arguments) {
        vector.push_back(const_cast<char*>(argument.c_str()));
    }
    vector.push_back(nullptr);
    return vector;
}

} // namespace

EngineProcess::EngineProcess(Configuration configuration) : configuration_(std::move(configuration)) {}

EngineProcess::~EngineProcess() {
    if (running_) {
        requestTermination();
        waitForExit();
    }
    UniqueDescriptor closing(processDescriptor_.exchange(-1));
}

void EngineProcess::launch() {
    if (std::ranges::any_of(configuration_.arguments, wouldArriveShortened)) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    FileActions actions;
    redirectStreams(actions, configuration_);
    const DefaultSignals signals;
    const std::vector<char*> arguments = argumentVector(configuration_);
    pid_t identifier = -1;
    require(posix_spawn(&identifier, configuration_.executable.c_str(), actions.get(), signals.get(), arguments.data(),
                        environ));
    // Until it is waited for, the identifier stays the engine's: nobody else in this process waits for children.
    const int descriptor = pidfd_open(identifier, 0);
    if (descriptor < 0) {
        kill(identifier, SIGTERM);
        while (waitpid(identifier, nullptr, 0) < 0 && errno == EINTR) {
        }
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    running_ = true;
    processDescriptor_ = descriptor;
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

bool EngineProcess::waitForExit(std::chrono::milliseconds limit) {
    if (running_) {
        pollfd ending{processDescriptor_, POLLIN, 0};
        poll(&ending, 1, static_cast<int>(limit.count()));
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
        // Interrupted: still running. Anything else means that the status went to somebody else, and waiting is over.
        if (errno != EINTR) {
            running_ = false;
            terminationStatus_ = -1;
        }
    } else if (information.si_pid != 0) {
        running_ = false;
        terminationStatus_ = information.si_status;
    }
}
