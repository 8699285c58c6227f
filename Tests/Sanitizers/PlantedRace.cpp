// A worker hands its result to the main thread as the program does. Called with an argument, it changes the result
// afterwards, while the main thread reads it.

#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"

#include <QCoreApplication>

#include <atomic>
#include <cstdlib>
#include <thread>

namespace {

struct Result {
    int value = 0;
};

void changeResult(Result& result) {
    ++result.value;
}

int takeResult(const Result& result) {
    return result.value;
}

} // namespace

int main(int argumentCount, char** arguments) {
    const QCoreApplication application(argumentCount, arguments);
    const bool isPlanted = argumentCount > 1;
    const auto result = std::make_shared<Result>();
    int taken = 0;
    const auto work = [&taken, result, isPlanted] {
        changeResult(*result);
        const auto isTaken = std::make_shared<std::promise<void>>();
        const auto isChanged = std::make_shared<std::atomic<bool>>(false);
        BackgroundTask::postToMainThread([&taken, isTaken, isChanged, result] {
            // The sanitizer may miss accesses at the very same moment. A relaxed load does not synchronize.
            while (!isChanged->load(std::memory_order_relaxed)) {
                std::this_thread::yield();
            }
            taken = takeResult(*result);
            isTaken->set_value();
        });
        if (isPlanted) {
            changeResult(*result);
        }
        isChanged->store(true, std::memory_order_relaxed);
        // Whatever both threads lock between the two accesses would put them in an order.
        isTaken->get_future().wait();
    };
    BackgroundTask::run(work, [](const std::future<void>&) { QCoreApplication::quit(); });
    QCoreApplication::exec();
    return taken > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
