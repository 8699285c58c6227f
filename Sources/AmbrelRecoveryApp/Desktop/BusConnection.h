#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariantList>

#include <chrono>
#include <functional>
#include <memory>

/// A private connection to a message bus. It is closed when this object is destroyed or the process ends, and the bus
/// then drops everything that it keeps for the connection. Nothing here waits for the bus; one that does not answer
/// blocks neither this thread nor other connections. Main thread.
class BusConnection final : public QObject {
public:
    /// Receives the connection, or null if it could not be made.
    using Completion = std::function<void(std::shared_ptr<BusConnection>)>;
    /// Receives the answer to a call, which is an error if none arrived in time.
    using Answered = std::function<void(const QDBusPendingCall& answer)>;
    /// Receives the arguments of a signal.
    using Heard = std::function<void(const QVariantList& arguments)>;

    struct Call {
        QString service;
        QString path;
        QString interface;
        QString method;
        QVariantList arguments = {};
    };

    /// Identifies a signal.
    struct Signal {
        QString service;
        QString path;
        QString interface;
        QString name;
        /// The types of the arguments as a D-Bus signature.
        QString signature;
        /// Empty matches any first argument.
        QString firstArgument = {};
    };

    /// Connects to the user's session bus or to the system bus and calls `completion` once, asynchronously, after about
    /// `limit` at the latest. Does not call it if `context` has been destroyed by then. Never starts a bus. `limit`
    /// also applies to each answer to a call().
    static void open(QDBusConnection::BusType type, std::chrono::milliseconds limit, QObject* context,
                     const Completion& completion);

    ~BusConnection() override;

    /// Sends `call` and calls `answered` once, asynchronously. Does not call it if `context` has been destroyed by
    /// then.
    void call(const Call& call, QObject* context, const Answered& answered);

    /// Calls `heard` for each such signal until the connection ends. Only signals from the current owner of the
    /// service's name are accepted: any process on the bus may send such a signal, even to this connection only.
    void listen(const Signal& signal, const Heard& heard);

private:
    BusConnection(QString name, std::chrono::milliseconds limit);
    void follow(const QString& service);

    /// The name by which Qt identifies the connection.
    const QString name_;
    const std::chrono::milliseconds limit_;
    /// The unique name of the owner of each watched service; empty if it has none.
    QMap<QString, QString> owners_;
};
