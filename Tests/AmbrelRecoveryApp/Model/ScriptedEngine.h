#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryEngine.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

/// An engine without a process, which does what a test has laid ready and notes what it was given.
class ScriptedEngine final : public RecoveryEngine {
public:
    enum class Reply {
        /// Ends with `output`.
        succeeds,
        /// Fails with `output` on standard error.
        fails,
        cannotRun,
        /// Stands for one behind an engine that never ends.
        isRefused,
        /// Runs until it is cancelled.
        waits
    };

    struct Run {
        std::vector<std::string> arguments;
        std::string credential;

        bool operator==(const Run&) const = default;
    };

    /// What the next runs do. Main thread.
    void replyWith(Reply reply, std::string output = {});

    /// The runs so far. Main thread.
    std::vector<Run> runs() const;

    /// How often it was asked to end. Main thread.
    int cancellations() const { return cancellations_; }

    AmbrelRecoveryProcessResult run(const std::vector<std::string>& arguments,
                                    const AmbrelRecoveryCredentialSession& session, AmbrelRecoveryAppFactor factor,
                                    const std::stop_token& stopToken) override;
    void cancelCurrentOperation() override { ++cancellations_; }

private:
    int cancellations_ = 0;
    mutable std::mutex mutex_;
    std::condition_variable_any stopped_;
    Reply reply_ = Reply::succeeds;
    std::string output_;
    std::vector<Run> runs_;
};
