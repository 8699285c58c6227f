#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <condition_variable>
#include <deque>
#include <mutex>

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

/// The functions waiting to be called on the main thread. They are kept in our own queue, and the Qt event only signals
/// that there is one more, because the thread sanitizer sees this lock but not those inside Qt. Events that carried the
/// functions would look like data races, and suppressing those reports would also hide real races.
struct Posted {
    std::mutex mutex;
    std::deque<std::function<void()>> functions;
};

Posted& posted() {
    static auto* const posted = new Posted;
    return *posted;
}

void callNextPosted() {
    std::function<void()> function;
    {
        const std::lock_guard lock(posted().mutex);
        function = std::move(posted().functions.front());
        posted().functions.pop_front();
    }
    function();
}

/// Never reads the event: its hand-over between threads is synchronized inside Qt, where the thread sanitizer does not
/// see it.
class Caller final : public QObject {
protected:
    void customEvent(QEvent*) override { callNextPosted(); }
};

/// Lives on the main thread, whichever thread asks first. Never destroyed, because threads may post until the very end.
Caller& caller() {
    static auto* const caller = [] {
        auto* const made = new Caller;
        made->moveToThread(QCoreApplication::instance()->thread());
        return made;
    }();
    return *caller;
}

} // namespace

void BackgroundTask::postToMainThread(std::function<void()> function) {
    {
        const std::lock_guard lock(posted().mutex);
        posted().functions.push_back(std::move(function));
    }
    QCoreApplication::postEvent(&caller(), new QEvent(QEvent::User));
}

bool BackgroundTask::waitForAll(std::chrono::milliseconds limit) {
    std::unique_lock lock(count().mutex);
    const bool isOver = count().changed.wait_for(lock, limit, [] { return count().awaited == 0; });
    return isOver && count().abandoned == 0;
}

BackgroundTask::Running::Running(AtEnd atEnd) : atEnd_(atEnd) {
    const std::lock_guard lock(count().mutex);
    ++count().of(atEnd_);
}

BackgroundTask::Running::~Running() {
    const std::lock_guard lock(count().mutex);
    --count().of(atEnd_);
    count().changed.notify_all();
}
