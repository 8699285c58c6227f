#pragma once

#include "AmbrelRecoveryApp/Model/RecoverySleepInhibitor.h"

#include <QObject>

#include <chrono>

class SleepInhibition;

/// Keeps the machine awake through the desktop's portal or the system's login manager. Where neither is there, refuses
/// or answers, nothing happens; nothing here waits.
class DesktopSleepInhibitor final : public QObject, public RecoverySleepInhibitor {
    Q_OBJECT

public:
    /// `limit` is how long each bus and each service has for its answer.
    explicit DesktopSleepInhibitor(std::chrono::milliseconds limit = std::chrono::seconds(10));

    void begin(const QString& reason) override;
    void end() override;

private:
    const std::chrono::milliseconds limit_;
    /// A child of this object, as the released ones are that still await an answer.
    SleepInhibition* current_ = nullptr;
};
