#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariantList>

#include <chrono>
#include <functional>
#include <memory>

/// A connection of its own to a message bus, which ends with this object: what the bus keeps for a connection ends
/// then, too, as it does when the process ends in any other way. Nothing here ever waits for the bus, and one that does
/// not answer holds up neither this thread nor the connections of others. Main thread.
class BusConnection final : public QObject {
public:
    /// Takes the connection, or null where there is none to be had.
    using Completion = std::function<void(std::shared_ptr<BusConnection>)>;
    /// Takes the answer to a call, which is an error where there was none in time.
    using Answered = std::function<void(const QDBusPendingCall& answer)>;
    /// Takes the arguments of a signal.
    using Heard = std::function<void(const QVariantList& arguments)>;

    /// What a signal is known by.
    struct Signal {
        QString service;
        QString path;
        QString interface;
        QString name;
        /// The types of the arguments, as the bus writes them.
        QString signature;
        /// Empty where any will do.
        QString firstArgument = {};
    };

    /// Connects to the bus at `address` and calls `completion` once, later, at most about `limit` from now; never where
    /// `context` is gone by then.
    static void open(const QString& address, std::chrono::milliseconds limit, QObject* context, Completion completion);

    ~BusConnection() override;

    /// Sends `message` and calls `answered` once, later, at most `limit` from now; never where `context` is gone by
    /// then.
    void call(const QDBusMessage& message, std::chrono::milliseconds limit, QObject* context, Answered answered);

    /// Calls `heard` for each such signal, as they come, until the connection ends. Only whoever owns the service's
    /// name at that moment is listened to: anybody on the bus may send such a signal, to this connection alone, too.
    void listen(const Signal& signal, const Heard& heard);

private:
    class Opening;

    explicit BusConnection(QString name);
    void follow(const QString& service);

    /// The name that the toolkit knows the connection by.
    const QString name_;
    /// The unique name of who owns each service that is listened to; empty where nobody does.
    QMap<QString, QString> owners_;
};
