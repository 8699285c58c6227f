#include "AmbrelRecoveryApp/Desktop/DesktopNotifier.h"

#include "AmbrelRecoveryApp/Desktop/DesktopNotification.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <utility>

DesktopNotifier::DesktopNotifier(std::chrono::milliseconds limit) : limit_(limit) {}

void DesktopNotifier::show(const QString& text, std::function<void()> activated) {
    MainThread::require();
    withdraw();
    current_ = new DesktopNotification(text, limit_, this);
    connect(current_, &DesktopNotification::activated, this, std::move(activated));
}

void DesktopNotifier::withdraw() {
    MainThread::require();
    if (DesktopNotification* const last = std::exchange(current_, nullptr)) {
        last->withdraw();
    }
}
