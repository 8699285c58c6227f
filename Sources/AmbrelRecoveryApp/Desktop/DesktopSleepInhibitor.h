#pragma once

#include <QObject>

#include <chrono>
#include <memory>

class BusConnection;

/// Keeps the machine awake through the desktop's portal and through the system's login manager. Both are asked: some
/// portals answer that they grant a request which their desktop then refuses. Does nothing if neither exists, grants
/// the request or answers. Each grant is tied to a connection or a descriptor of this process, so it never outlives the
/// process. Never blocks. Main thread.
///
/// The portal grants nothing to a process that it cannot inspect, but it caches what it has learned about a connection.
/// This object therefore introduces itself to the portal on construction and uses only that connection.
class DesktopSleepInhibitor final : public QObject {
    Q_OBJECT

public:
    /// `limit` applies to the connection to each bus and to each answer of a service.
    explicit DesktopSleepInhibitor(std::chrono::milliseconds limit = std::chrono::seconds(10));

    /// Keeps the machine from falling asleep until end(), if the desktop allows it. The desktop may show `reason` to
    /// the user. Does nothing if already active.
    void begin(const QString& reason);

    /// Lets the machine sleep again. Does nothing if not active.
    void end();

private:
    class Inhibition;

    void askPortal();
    void askLoginManager();
    void closeRequest(const QString& path);

    const std::chrono::milliseconds limit_;
    /// Null until the portal knows the connection, and after it failed to answer.
    std::shared_ptr<BusConnection> portal_;
    /// Null if not active. A child of this object.
    Inhibition* current_ = nullptr;
};
