#pragma once

#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <stop_token>
#include <system_error>
#include <type_traits>
#include <utility>

/// Runs blocking work of which only the latest result matters. Starting again, dropping or destroying this object
/// discards the result of earlier work. The end of the process does not wait for it. Main thread.
class LatestTask {
public:
    LatestTask() = default;
    LatestTask(const LatestTask&) = delete;
    LatestTask& operator=(const LatestTask&) = delete;
    ~LatestTask() { drop(); }

    /// Calls `work` on a new thread, then `take` with its result on the main thread. If `work` accepts a stop token, it
    /// receives one that is stopped when the result is no longer needed. Returns false if no thread can be created;
    /// neither is called then.
    template<typename Work, typename Take>
    bool start(Work work, Take take) {
        MainThread::require();
        drop();
        wanted_ = std::stop_source();
        const std::stop_token token = wanted_.get_token();
        auto completion = [this, token, take = std::move(take)](auto& outcome) {
            if (!token.stop_requested()) {
                wanted_ = std::stop_source(std::nostopstate);
                take(outcome.get());
            }
        };
        try {
            if constexpr (std::is_invocable_v<Work, std::stop_token>) {
                BackgroundTask::run([work = std::move(work), token] { return work(token); }, std::move(completion),
                                    BackgroundTask::AtEnd::abandoned);
            } else {
                BackgroundTask::run(std::move(work), std::move(completion), BackgroundTask::AtEnd::abandoned);
            }
            return true;
        } catch (const std::system_error&) {
            drop();
            return false;
        }
    }

    /// Discards the result of the running work.
    void drop() { wanted_.request_stop(); }

    bool isRunning() const { return wanted_.stop_possible() && !wanted_.stop_requested(); }

private:
    std::stop_source wanted_{std::nostopstate};
};
