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

/// Runs blocking work on a separate thread and delivers the result on the main thread. Cancellation is up to the work:
/// pass it a std::stop_token, and check that token again in the completion.
namespace BackgroundTask {

/// Calls `function` on the main thread in a later iteration of its event loop. Calls from one thread keep their order.
/// Any thread; requires the application object.
void postToMainThread(std::function<void()> function);

/// Whether the end of the process waits for work that is still running.
enum class AtEnd {
    /// Waited for, because aborted work would leave something behind.
    awaited,
    /// Not waited for: the work only queries another program or a file system, which may never answer.
    abandoned
};

/// Waits until no awaited work is running, but at most `limit`. Returns true if no work of either kind is running then.
/// Any thread.
bool waitForAll(std::chrono::milliseconds limit);

/// Counts as one running piece of work for waitForAll() during its lifetime.
class Running {
public:
    explicit Running(AtEnd atEnd);
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running();

private:
    const AtEnd atEnd_;
};

/// Returns the outcome of `work()`. Destroys `work`, with everything it captured, once it has returned or thrown.
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

/// Calls `work()` on a new thread, then `completion(std::future<Outcome>&)` on the main thread. The future is ready and
/// holds what the work returned or threw. Main thread. Throws std::system_error if no thread can be created.
template<typename Work, typename Completion>
void run(Work work, Completion completion, AtEnd atEnd = AtEnd::awaited) {
    MainThread::require();
    auto running = std::make_unique<Running>(atEnd);
    std::thread([work = std::move(work), completion = std::move(completion), running = std::move(running)]() mutable {
        // Shared because std::function requires a copyable callable.
        const auto outcome = std::make_shared<std::future<std::invoke_result_t<Work>>>(outcomeOf(std::move(work)));
        postToMainThread([outcome, completion = std::move(completion)] { completion(*outcome); });
    }).detach();
}

} // namespace BackgroundTask
