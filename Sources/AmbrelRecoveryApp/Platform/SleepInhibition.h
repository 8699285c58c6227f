#pragma once

#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

class BusConnection;

/// One request to keep the machine awake, from its beginning to its release: to the desktop's portal and, where that
/// does not grant it, to the system's login manager. Both grant it for the life of something that belongs to this
/// process, a connection or a descriptor, so that it never outlives the process. Main thread.
class SleepInhibition final : public QObject {
    Q_OBJECT

public:
    /// `limit` is how long each bus and each service has for its answer.
    SleepInhibition(QString reason, std::chrono::milliseconds limit, QObject* parent);
    ~SleepInhibition() override;

    /// Lets the machine sleep again: at once, or, where an answer is still due, as soon as that has come. This object
    /// deletes itself then.
    void release();

private:
    enum class State { connecting, asking, settled };

    void askPortal();
    void askLoginManager();

    const QString reason_;
    const std::chrono::milliseconds limit_;
    State state_ = State::connecting;
    bool isReleased_ = false;
    std::shared_ptr<BusConnection> bus_;
    QDBusUnixFileDescriptor descriptor_;
};
