#include "ScriptedEngine.h"

#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"

#include <csignal>
#include <utility>

void ScriptedEngine::replyWith(Reply reply, std::string output) {
    const std::lock_guard lock(mutex_);
    reply_ = reply;
    output_ = std::move(output);
}

std::vector<ScriptedEngine::Run> ScriptedEngine::runs() const {
    const std::lock_guard lock(mutex_);
    return runs_;
}

AmbrelRecoveryProcessResult ScriptedEngine::run(const std::vector<std::string>& arguments,
                                                const AmbrelRecoveryCredentialSession& session,
                                                AmbrelRecoveryAppFactor factor, const std::stop_token& stopToken) {
    std::unique_lock lock(mutex_);
    const auto credential = session.credential(factor);
    const auto bytes = credential ? credential->bytes() : std::span<const std::byte>();
    runs_.push_back({arguments, std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size())});
    switch (reply_) {
    case Reply::succeeds:
        return {0, output_, ""};
    case Reply::fails:
        return {1, "", output_};
    case Reply::cannotRun:
        throw AmbrelRecoveryProcessError::executableUnavailable;
    case Reply::isRefused:
        throw AmbrelRecoveryProcessError::operationAlreadyRunning;
    case Reply::waits:
        break;
    }
    // Wakes the main thread, which may wait for this run.
    BackgroundTask::postToMainThread([] {});
    stopped_.wait(lock, stopToken, [] { return false; });
    return {SIGTERM, "", ""};
}
