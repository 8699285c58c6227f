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

/// Runs the recovery engine, one process at a time. run() blocks until the engine has ended, so never call it on the
/// main thread of a user interface; all members may be called on any thread.
class AmbrelRecoveryProcessRunner {
public:
    /// The timeout, in seconds, of every engine run in the application.
    static constexpr double defaultTimeout = 1800;

    /// A runner for the engine at `executableURL`, a file path. It is not checked before a run; an empty path then
    /// counts as unavailable, like a missing file.
    explicit AmbrelRecoveryProcessRunner(const std::filesystem::path& executableURL);

    AmbrelRecoveryProcessRunner(const AmbrelRecoveryProcessRunner&) = delete;
    AmbrelRecoveryProcessRunner& operator=(const AmbrelRecoveryProcessRunner&) = delete;

    /// The engine's path, absolute, without "." and "..".
    const std::filesystem::path& executableURL() const { return executableURL_; }

    /// Runs the engine with `arguments`, unchanged, and returns its result, regardless of its exit status.
    /// With a credential, the engine's standard input contains the credential's bytes and one line feed; without one,
    /// it is the null device.
    /// An engine that runs longer than `timeout` seconds of wall-clock time is asked to end; the call waits for it,
    /// however long that takes, and then throws timedOut. An engine that was asked to end through
    /// cancelCurrentOperation() yields an ordinary result, even if it has not read the credential.
    /// If `stopToken` was stopped before the launch was complete, the engine is asked to end immediately. This catches
    /// a cancellation that came too early for cancelCurrentOperation() to find a process.
    /// Throws AmbrelRecoveryProcessError or std::bad_alloc. In any case, no process, file or copy of the credential is
    /// left behind.
    AmbrelRecoveryProcessResult run(const std::vector<std::string>& arguments,
                                    std::optional<std::span<const std::byte>> credential, double timeout,
                                    const std::stop_token& stopToken = {});

    /// Asks the running engine, if any, to end.
    void cancelCurrentOperation();

private:
    class Registration;

    const std::filesystem::path executableURL_;
    std::mutex mutex_;
    /// The process of the current run, or null. Guarded by mutex_.
    std::shared_ptr<EngineProcess> activeProcess_;
};
