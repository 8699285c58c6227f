#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryEngine.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>

/// The engine as a program. An engine that was asked to end may take its time for that, so a run waits for the end of
/// the one before it.
class RecoveryEngineProgram final : public RecoveryEngine {
public:
    /// How long a run of the application waits for the one before it. An engine that was cancelled has until then to
    /// remove what it had exported; one that is not gone by then is taken for one that never ends.
    static constexpr std::chrono::minutes defaultWait{5};

    /// The program at `executableURL`, a file path.
    explicit RecoveryEngineProgram(const std::filesystem::path& executableURL,
                                   std::chrono::milliseconds longestWait = defaultWait);

    AmbrelRecoveryProcessResult run(const std::vector<std::string>& arguments,
                                    const AmbrelRecoveryCredentialSession& session, AmbrelRecoveryAppFactor factor,
                                    const std::stop_token& stopToken) override;
    void cancelCurrentOperation() override { runner_.cancelCurrentOperation(); }

private:
    class Turn;

    AmbrelRecoveryProcessRunner runner_;
    const std::chrono::milliseconds longestWait_;
    std::mutex mutex_;
    std::condition_variable_any runEnded_;
    /// Guarded by mutex_.
    bool isRunning_ = false;
};
