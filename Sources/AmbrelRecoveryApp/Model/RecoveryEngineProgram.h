#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryEngine.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>

/// Runs the engine as a program. An engine that was asked to end may take time to do so, so a run waits for the
/// previous one to end. The copy of the credential that a run takes from the session is wiped.
class RecoveryEngineProgram final : public RecoveryEngine {
public:
    /// How long a run waits for the previous one. A cancelled engine has this long to remove what it has exported;
    /// after that, it is assumed never to end.
    static constexpr std::chrono::minutes defaultWait{5};

    /// `executableURL` is the file path of the program.
    explicit RecoveryEngineProgram(const std::filesystem::path& executableURL,
                                   std::chrono::milliseconds longestWait = defaultWait);

    AmbrelRecoveryProcessResult run(const std::vector<std::string>& arguments,
                                    const AmbrelRecoveryCredentialSession& session, AmbrelRecoveryAppFactor factor,
                                    const std::stop_token& stopToken) override;
    void cancelCurrentOperation() override { runner_.cancelCurrentOperation(); }

private:
    void waitForTurn(const std::stop_token& stopToken);

    AmbrelRecoveryProcessRunner runner_;
    const std::chrono::milliseconds longestWait_;
    std::mutex mutex_;
    std::condition_variable_any runEnded_;
    /// Guarded by mutex_.
    bool isRunning_ = false;
};
