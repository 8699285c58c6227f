#pragma once

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

class BusConnection;

/// One request to keep the machine awake, until it is released. The desktop's portal is asked first and, if it does not
/// grant the request, the system's login manager. Each grant is tied to a connection or a descriptor of this process,
/// so it never outlives the process. Main thread.
class SleepInhibition final : public QObject {
    Q_OBJECT

public:
    /// `portal` is a connection known to the desktop's portal, or null if there is none. `limit` applies to the
    /// connection to the system bus and to each answer of a service.
    SleepInhibition(std::shared_ptr<BusConnection> portal, QString reason, std::chrono::milliseconds limit,
                    QObject* parent);
    ~SleepInhibition() override;

    /// Lets the machine sleep again: immediately, or when a pending answer has arrived. This object then deletes
    /// itself.
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
    /// The portal's handle for the request that it granted.
    QDBusObjectPath request_;
    QDBusUnixFileDescriptor descriptor_;
};
