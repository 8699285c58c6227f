#include "AmbrelRecoveryApp/Platform/DesktopSleepInhibitor.h"

#include "AmbrelRecoveryApp/Platform/SleepInhibition.h"

#include <utility>

DesktopSleepInhibitor::DesktopSleepInhibitor(std::chrono::milliseconds limit) : limit_(limit) {}

void DesktopSleepInhibitor::begin(const QString& reason) {
    if (current_ == nullptr) {
        current_ = new SleepInhibition(reason, limit_, this);
    }
}

void DesktopSleepInhibitor::end() {
    if (SleepInhibition* const last = std::exchange(current_, nullptr)) {
        last->release();
    }
}
