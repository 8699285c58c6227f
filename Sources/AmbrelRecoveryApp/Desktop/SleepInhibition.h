#pragma once

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

class BusConnection;

/// One request to keep the machine awake, from its beginning to its release: to the desktop's portal and, where that
/// does not grant it, to the system's login manager. What they grant ends with something that belongs to this process,
/// a connection or a descriptor, so that it never outlives the process. Main thread.
class SleepInhibition final : public QObject {
    Q_OBJECT

public:
    /// `portal` is a connection that the desktop's portal knows, or null where there is none. `limit` is how long the
    /// system's bus and each service has for its answer.
    SleepInhibition(std::shared_ptr<BusConnection> portal, QString reason, std::chrono::milliseconds limit,
                    QObject* parent);
    ~SleepInhibition() override;

    /// Lets the machine sleep again: at once, or, where an answer is still due, as soon as that has come. This object
    /// deletes itself then.
    void release();

signals:
    /// The portal refused or did not answer.
    void portalFailed();

private:
    void askPortal();
    void askLoginManager();
    void giveBack();

    std::shared_ptr<BusConnection> portal_;
    const QString reason_;
    const std::chrono::milliseconds limit_;
    bool isAsking_ = false;
    bool isReleased_ = false;
    /// What the portal calls the request that it granted.
    QDBusObjectPath request_;
    QDBusUnixFileDescriptor descriptor_;
};
