#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>

/// A connection of its own to a message bus, which ends with this object: what the bus keeps for a connection ends
/// then, too, as it does when the process ends in any other way. Nothing here ever waits for the bus, and one that does
/// not answer holds up neither this thread nor the connections of others. Main thread.
class BusConnection {
public:
    /// Takes the connection, or null where there is none to be had.
    using Completion = std::function<void(std::shared_ptr<BusConnection>)>;
    /// Takes the answer to a call, which is an error where there was none in time.
    using Answered = std::function<void(const QDBusPendingCall& answer)>;

    /// Connects to the bus at `address` and calls `completion` once, later, at most about `limit` from now; never where
    /// `context` is gone by then.
    static void open(const QString& address, std::chrono::milliseconds limit, QObject* context, Completion completion);

    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;
    ~BusConnection();

    /// Sends `message` and calls `answered` once, later, at most `limit` from now; never where `context` is gone by
    /// then.
    void call(const QDBusMessage& message, std::chrono::milliseconds limit, QObject* context, Answered answered);

    /// Has the signals of the interface at `path` of `service` delivered, as they come, to `slot` of `receiver`, a
    /// SLOT() whose first parameter types are the signal's.
    void listen(const QString& service, const QString& path, const QString& interface, const QString& signal,
                QObject* receiver, const char* slot);

private:
    class Opening;

    explicit BusConnection(QString name);

    /// The name that the toolkit knows the connection by.
    const QString name_;
};
