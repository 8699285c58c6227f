#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// One engine process, from before its launch until after its end. One source file per system implements it. Launch and
/// wait on one thread; requestTermination() may be called on any thread at any time.
class EngineProcess {
public:
    struct Configuration {
        std::filesystem::path executable;
        /// The arguments after the program's name.
        std::vector<std::string> arguments;
        /// Descriptors for the engine's streams, owned by the caller. A negative standardInput means the null device.
        int standardInput = -1;
        int standardOutput = -1;
        int standardError = -1;
    };

    explicit EngineProcess(Configuration configuration);
    EngineProcess(const EngineProcess&) = delete;
    EngineProcess& operator=(const EngineProcess&) = delete;

    /// Terminates a running engine and waits for it, so that none is left behind.
    ~EngineProcess();

    /// Starts the engine. It inherits the environment, the working directory and the three streams, but no other
    /// descriptor; no signals are blocked or ignored in it. It receives SIGTERM if this process, or the thread that
    /// called launch(), ends first. Throws AmbrelRecoveryProcessError::launchFailed.
    void launch();

    /// Asks the engine to end (SIGTERM). During its launch, the request takes effect as soon as it runs. Does nothing
    /// after the engine has ended: the signal cannot reach another process, even one that has reused the engine's
    /// process identifier.
    void requestTermination() noexcept;

    /// Whether termination was requested, by anyone.
    bool isAskedToEnd() const { return terminationRequested_; }

    /// Kills every engine of this process (SIGKILL), including those that do not react to SIGTERM. For use at the end
    /// of the process, when waiting is no longer possible. Any thread.
    static void killAll() noexcept;

    /// Waits until the engine has ended, `limit` has passed, or the descriptor `writable` becomes writable; a negative
    /// descriptor is ignored. Returns whether the engine has ended.
    bool waitForExit(std::chrono::milliseconds limit, int writable = -1);

    /// Waits for the engine to end, without a limit.
    void waitForExit();

    /// The exit status, or the number of the signal that ended the engine. Call only after it has ended.
    std::int32_t terminationStatus() const { return terminationStatus_; }

private:
    void reap(int options);

    const Configuration configuration_;
    /// Refers to the process itself, not to its identifier; open from launch until destruction.
    std::atomic<int> processDescriptor_ = -1;
    /// requestTermination() writes this before it reads processDescriptor_; launch() reads it after it has written
    /// that. So no request is lost.
    std::atomic<bool> terminationRequested_ = false;
    bool running_ = false;
    std::int32_t terminationStatus_ = 0;
};
