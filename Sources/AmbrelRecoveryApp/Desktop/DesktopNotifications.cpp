#include "AmbrelRecoveryApp/Desktop/DesktopNotifications.h"

#include "AmbrelRecoveryApp/Desktop/DesktopNotification.h"

#include <utility>

DesktopNotifications::DesktopNotifications(std::chrono::milliseconds limit) : limit_(limit) {}

void DesktopNotifications::show(const QString& text, std::function<void()> activated) {
    withdraw();
    current_ = new DesktopNotification(text, limit_, this);
    connect(current_, &DesktopNotification::activated, this, std::move(activated));
}

void DesktopNotifications::withdraw() {
    if (DesktopNotification* const last = std::exchange(current_, nullptr)) {
        last->withdraw();
    }
}
