#include "AmbrelRecoveryApp/Model/RecoveryEngineProgram.h"

#include "AmbrelRecoveryApp/Model/RecoveryEngineRun.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/CancellationError.h"

/// The right to run the engine. Held before the runner is called, since a run that was cancelled early may register its
/// process late.
class RecoveryEngineProgram::Turn {
public:
    Turn(RecoveryEngineProgram& program, const std::stop_token& stopToken) : program_(program) {
        std::unique_lock lock(program.mutex_);
        if (!program.runEnded_.wait_for(lock, stopToken, program.longestWait_,
                                        [&program] { return !program.isRunning_; })) {
            if (stopToken.stop_requested()) {
                throw CancellationError();
            }
            throw AmbrelRecoveryProcessError::operationAlreadyRunning;
        }
        program.isRunning_ = true;
    }

    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    ~Turn() {
        const std::lock_guard lock(program_.mutex_);
        program_.isRunning_ = false;
        program_.runEnded_.notify_all();
    }

private:
    RecoveryEngineProgram& program_;
};

RecoveryEngineProgram::RecoveryEngineProgram(const std::filesystem::path& executableURL,
                                             std::chrono::milliseconds longestWait)
    : runner_(executableURL), longestWait_(longestWait) {}

AmbrelRecoveryProcessResult RecoveryEngineProgram::run(const std::vector<std::string>& arguments,
                                                       const AmbrelRecoveryCredentialSession& session,
                                                       AmbrelRecoveryAppFactor factor,
                                                       const std::stop_token& stopToken) {
    const Turn turn(*this, stopToken);
    return RecoveryEngineRun::run(runner_, arguments, session, factor, stopToken);
}
