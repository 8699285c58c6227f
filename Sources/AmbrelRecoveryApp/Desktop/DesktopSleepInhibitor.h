#pragma once

#include "AmbrelRecoveryApp/Desktop/RecoverySleepInhibitor.h"

#include <QObject>

#include <chrono>
#include <memory>

class BusConnection;
class SleepInhibition;

/// Keeps the machine awake through the desktop's portal or the system's login manager. Does nothing if neither exists,
/// grants the request or answers. Never blocks. The portal grants nothing to a process that it cannot inspect, but it
/// caches what it has learned about a connection. This object therefore introduces itself to the portal on construction
/// and uses only that connection.
class DesktopSleepInhibitor final : public QObject, public RecoverySleepInhibitor {
    Q_OBJECT

public:
    /// `limit` applies to the connection to each bus and to each answer of a service.
    explicit DesktopSleepInhibitor(std::chrono::milliseconds limit = std::chrono::seconds(10));
    ~DesktopSleepInhibitor() override;

    void begin(const QString& reason) override;
    void end() override;

private:
    void introduceTo(const std::shared_ptr<BusConnection>& portal);

    const std::chrono::milliseconds limit_;
    /// Null until the portal knows the connection, and after it failed to answer.
    std::shared_ptr<BusConnection> portal_;
    /// A child of this object, like the released ones that still await an answer.
    SleepInhibition* current_ = nullptr;
};
