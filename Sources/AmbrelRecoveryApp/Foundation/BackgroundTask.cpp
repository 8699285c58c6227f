#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace {

struct Count {
    std::mutex mutex;
    std::condition_variable changed;
    int awaited = 0;
    int abandoned = 0;

    int& of(BackgroundTask::AtEnd atEnd) { return atEnd == BackgroundTask::AtEnd::awaited ? awaited : abandoned; }
};

/// Never destroyed: work that outlives the wait at the end of the process still decrements its counter.
Count& count() {
    static auto* const count = new Count;
    return *count;
}

/// Counts as one running piece of work during its lifetime.
class Running {
public:
    explicit Running(BackgroundTask::AtEnd atEnd) : atEnd_(atEnd) {
        const std::lock_guard lock(count().mutex);
        ++count().of(atEnd_);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        const std::lock_guard lock(count().mutex);
        --count().of(atEnd_);
        count().changed.notify_all();
    }

private:
    const BackgroundTask::AtEnd atEnd_;
};

/// Calls functions on the main thread. They are kept in a queue of its own, and the Qt event only signals that there is
/// one more, because the thread sanitizer sees this lock but not those inside Qt. Events that carried the functions
/// would look like data races, and suppressing those reports would also hide real races.
class MainThreadCaller final : public QObject {
public:
    void post(std::function<void()> function) {
        {
            const std::lock_guard lock(mutex_);
            functions_.push_back(std::move(function));
        }
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

protected:
    /// Never reads the event: its hand-over between threads is synchronized inside Qt as well.
    void customEvent(QEvent*) override {
        std::function<void()> function;
        {
            const std::lock_guard lock(mutex_);
            function = std::move(functions_.front());
            functions_.pop_front();
        }
        function();
    }

private:
    std::mutex mutex_;
    std::deque<std::function<void()>> functions_;
};

/// Lives on the main thread, whichever thread asks first. Never destroyed, because threads may post until the very end.
MainThreadCaller& caller() {
    static auto* const caller = [] {
        auto* const made = new MainThreadCaller;
        made->moveToThread(QCoreApplication::instance()->thread());
        return made;
    }();
    return *caller;
}

} // namespace

void BackgroundTask::postToMainThread(std::function<void()> function) {
    caller().post(std::move(function));
}

bool BackgroundTask::waitForAll(std::chrono::milliseconds limit) {
    std::unique_lock lock(count().mutex);
    const bool isOver = count().changed.wait_for(lock, limit, [] { return count().awaited == 0; });
    return isOver && count().abandoned == 0;
}

void BackgroundTask::start(std::function<void()> body, AtEnd atEnd) {
    std::thread([body = std::move(body), running = std::make_unique<Running>(atEnd)] { body(); }).detach();
}
