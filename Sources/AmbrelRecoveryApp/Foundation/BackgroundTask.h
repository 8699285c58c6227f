#pragma once

#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <chrono>
#include <exception>
#include <functional>
#include <future>
#include <memory>
#include <thread>
#include <type_traits>
#include <utility>

/// Runs blocking work on a thread of its own and brings the outcome back to the main thread.
/// Cancelling is the work's own affair: hand it a std::stop_token, and look at that token again in the completion.
namespace BackgroundTask {

/// Calls `function` on the main thread in a later turn of its event loop; calls from one thread keep their order.
/// Any thread. Needs the application object.
void postToMainThread(std::function<void()> function);

/// What the end of the process does about work that still runs.
enum class AtEnd {
    /// It waits, since the work leaves something behind otherwise.
    awaited,
    /// It does not wait: the work only asks another program or a file system for something, and neither may ever
    /// answer.
    abandoned
};

/// Waits until no awaited work runs any more, at most `limit`. True where no work of either kind runs then. Any thread.
bool waitForAll(std::chrono::milliseconds limit);

/// Counts one running piece of work for waitForAll() while it lives.
class Running {
public:
    explicit Running(AtEnd atEnd);
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running();

private:
    const AtEnd atEnd_;
};

/// The outcome of `work()`, which is destroyed with everything it captured once it has returned or thrown.
template<typename Work>
std::future<std::invoke_result_t<Work>> outcomeOf(Work work) {
    std::promise<std::invoke_result_t<Work>> promise;
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<Work>>) {
            work();
            promise.set_value();
        } else {
            promise.set_value(work());
        }
    } catch (...) {
        promise.set_exception(std::current_exception());
    }
    return promise.get_future();
}

/// Calls `work()` on a new thread and then `completion(std::future<Outcome>&)` on the main thread; the future is ready
/// and holds what the work returned or threw. Main thread. Throws std::system_error where no thread can be had.
template<typename Work, typename Completion>
void run(Work work, Completion completion, AtEnd atEnd = AtEnd::awaited) {
    MainThread::require();
    auto running = std::make_unique<Running>(atEnd);
    std::thread([work = std::move(work), completion = std::move(completion), running = std::move(running)]() mutable {
        // Shared, because what is posted must be copyable.
        const auto outcome = std::make_shared<std::future<std::invoke_result_t<Work>>>(outcomeOf(std::move(work)));
        postToMainThread([outcome, completion = std::move(completion)] { completion(*outcome); });
    }).detach();
}

} // namespace BackgroundTask
