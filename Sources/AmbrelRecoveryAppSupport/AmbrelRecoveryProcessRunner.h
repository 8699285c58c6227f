#pragma once

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessResult.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

class EngineProcess;

/// Runs the recovery engine, one process at a time. run() blocks its thread for the engine's whole life and so never
/// belongs on the main thread of a user interface; every member may be called on any thread.
class AmbrelRecoveryProcessRunner {
public:
    /// The time-out, in seconds, that the application gives every run of the engine.
    static constexpr double defaultTimeout = 1800;

    /// A runner for the engine at `executableURL`, a file path, which is not looked at before a run; an empty one is
    /// unavailable then, like any other where no file is.
    explicit AmbrelRecoveryProcessRunner(const std::filesystem::path& executableURL);

    AmbrelRecoveryProcessRunner(const AmbrelRecoveryProcessRunner&) = delete;
    AmbrelRecoveryProcessRunner& operator=(const AmbrelRecoveryProcessRunner&) = delete;
    ~AmbrelRecoveryProcessRunner();

    /// The engine's path, absolute, without "." and ".." in it.
    const std::filesystem::path& executableURL() const { return executableURL_; }

    /// Runs the engine with `arguments`, unchanged, and returns what it left, whatever its exit status.
    /// With a credential the engine reads its bytes, one line feed and the end of its standard input; without one it
    /// reads the null device. An engine that runs longer than `timeout` seconds of wall-clock time is asked to end and
    /// awaited, however long that takes. One that was asked to end through cancelCurrentOperation() gives an ordinary
    /// result, also where it has not read the credential.
    /// Where `stopToken` was stopped before the launch was over, the engine is asked to end at once: this catches a
    /// cancellation that came too early for cancelCurrentOperation() to find a process.
    /// Throws AmbrelRecoveryProcessError or std::bad_alloc; whatever happens, no process, file or copy of the
    /// credential stays behind.
    AmbrelRecoveryProcessResult run(const std::vector<std::string>& arguments,
                                    std::optional<std::span<const std::byte>> credential, double timeout,
                                    const std::stop_token& stopToken = {});

    /// Asks the running engine, if there is one, to end.
    void cancelCurrentOperation();

private:
    class Registration;

    const std::filesystem::path executableURL_;
    std::mutex mutex_;
    /// The process of the run in progress, or none. Guarded by mutex_.
    std::shared_ptr<EngineProcess> activeProcess_;
};
