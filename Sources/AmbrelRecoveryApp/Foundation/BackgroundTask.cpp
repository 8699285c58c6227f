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

/// Never destroyed: work that outlives the wait at the end of the process still counts itself down.
Count& count() {
    static auto* const count = new Count;
    return *count;
}

/// The functions on their way to the main thread. They travel in a queue of our own, and the toolkit's event only says
/// that there is one more, because the thread sanitizer sees this lock and not those inside the toolkit. An event that
/// carried them would look like a race, and what hides that from the sanitizer hides true ones, too.
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

/// Never looks into the event: who made it is known to the toolkit alone.
class Caller final : public QObject {
protected:
    void customEvent(QEvent*) override { callNextPosted(); }
};

/// Lives on the main thread, whoever asks first. Never destroyed, since threads may post to the last.
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
