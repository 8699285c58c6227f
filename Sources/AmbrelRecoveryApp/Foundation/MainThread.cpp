#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QMessageLogger>

#include <thread>

namespace {

// Initialized before main(), on the same thread.
const std::thread::id mainThread = std::this_thread::get_id();

} // namespace

void MainThread::require() {
    if (std::this_thread::get_id() != mainThread) {
        qFatal("What belongs to the main thread was called on another one.");
    }
}
