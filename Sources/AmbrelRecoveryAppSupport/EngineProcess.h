#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// One process of the engine, from before its launch until after its end. One source file per system implements it.
/// Launching and waiting belong to one thread; requestTermination() may be called on any thread at any time.
class EngineProcess {
public:
    struct Configuration {
        std::filesystem::path executable;
        /// The arguments behind the program's name.
        std::vector<std::string> arguments;
        /// Descriptors that become the engine's streams; they stay the caller's. A negative standardInput stands for
        /// the null device.
        int standardInput = -1;
        int standardOutput = -1;
        int standardError = -1;
    };

    explicit EngineProcess(Configuration configuration);
    EngineProcess(const EngineProcess&) = delete;
    EngineProcess& operator=(const EngineProcess&) = delete;

    /// Ends an engine that is still running and waits for it, so that none is left behind.
    ~EngineProcess();

    /// Starts the engine. It inherits the environment and the working directory, the three streams and no other
    /// descriptor; no signal is blocked or ignored in it. It is asked to end where this process, or the thread that
    /// called this, goes away before it. Throws AmbrelRecoveryProcessError::launchFailed.
    void launch();

    /// Asks the engine to end (SIGTERM): at once where it runs, and as soon as it runs where its launch is not over.
    /// After its end this does nothing: the request cannot reach another process, even one with the identifier that the
    /// engine had.
    void requestTermination() noexcept;

    /// Whether the engine was asked to end, by whomever.
    bool isAskedToEnd() const { return terminationRequested_; }

    /// Ends every engine of this process for good (SIGKILL), also one that does not end when it is asked to. For the
    /// end of the process, when nobody can wait any longer. Any thread.
    static void killAll() noexcept;

    /// Waits for the engine's end, at most `limit`, and no longer than until `writable`, a descriptor, can be written
    /// to; a negative one stands for none. True once the engine has ended.
    bool waitForExit(std::chrono::milliseconds limit, int writable = -1);

    /// Waits for the engine's end without limit.
    void waitForExit();

    /// The exit status or the number of the ending signal. Only after the end.
    std::int32_t terminationStatus() const { return terminationStatus_; }

private:
    void reap(int options);

    const Configuration configuration_;
    /// Refers to the process itself and not to its identifier; open from the launch until destruction.
    std::atomic<int> processDescriptor_ = -1;
    /// Written before processDescriptor_ is read, and read after that is written, so that no request is lost.
    std::atomic<bool> terminationRequested_ = false;
    bool running_ = false;
    std::int32_t terminationStatus_ = 0;
};
