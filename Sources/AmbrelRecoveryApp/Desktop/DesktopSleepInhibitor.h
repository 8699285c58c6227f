#pragma once

#include "AmbrelRecoveryApp/Desktop/RecoverySleepInhibitor.h"

#include <QObject>

#include <chrono>
#include <memory>

class BusConnection;
class SleepInhibition;

/// Keeps the machine awake through the desktop's portal or the system's login manager. Where neither is there, refuses
/// or answers, nothing happens; nothing here waits. The portal grants nothing to a process that it cannot look into,
/// but keeps what it once found out about a connection: this object makes itself known to it at its beginning, and asks
/// through that connection alone.
class DesktopSleepInhibitor final : public QObject, public RecoverySleepInhibitor {
    Q_OBJECT

public:
    /// `limit` is how long each bus and each service has for its answer.
    explicit DesktopSleepInhibitor(std::chrono::milliseconds limit = std::chrono::seconds(10));
    ~DesktopSleepInhibitor() override;

    void begin(const QString& reason) override;
    void end() override;

private:
    void introduceTo(const std::shared_ptr<BusConnection>& portal);

    const std::chrono::milliseconds limit_;
    /// Null until the portal knows it, and after it failed to answer.
    std::shared_ptr<BusConnection> portal_;
    /// A child of this object, as the released ones are that still await an answer.
    SleepInhibition* current_ = nullptr;
};
