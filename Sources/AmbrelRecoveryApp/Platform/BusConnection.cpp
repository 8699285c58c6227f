#include "AmbrelRecoveryApp/Platform/BusConnection.h"

#include "AmbrelRecoveryApp/Model/BackgroundTask.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPointer>
#include <QTimer>
#include <QUuid>

#include <future>
#include <system_error>
#include <utility>

namespace {

QDBusMessage callOfTheBus(const QString& method) {
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
}

} // namespace

/// Calls the completion exactly once, whatever happens first.
class BusConnection::Opening {
public:
    Opening(QObject* context, Completion completion) : context_(context), completion_(std::move(completion)) {}

    void settle(std::shared_ptr<BusConnection> connection) {
        const Completion completion = std::exchange(completion_, nullptr);
        if (completion && context_) {
            completion(std::move(connection));
        }
    }

    bool isWantedStill() const { return completion_ && context_; }
    QObject* context() const { return context_; }

private:
    const QPointer<QObject> context_;
    Completion completion_;
};

void BusConnection::open(const QString& address, std::chrono::milliseconds limit, QObject* context,
                         Completion completion) {
    const auto opening = std::make_shared<Opening>(context, std::move(completion));
    QTimer::singleShot(limit, context, [opening] { opening->settle(nullptr); });
    const QString name = QUuid::createUuid().toString();
    // As to a peer, because connecting to a bus makes the toolkit wait for the greeting of the bus.
    const auto connectToPeer = [address, name] {
        return !address.isEmpty() && QDBusConnection::connectToPeer(address, name).isConnected();
    };
    const auto greet = [opening, name, limit](std::future<bool>& isConnected) {
        const std::shared_ptr<BusConnection> connection(new BusConnection(name));
        if (!isConnected.get() || !opening->isWantedStill()) {
            opening->settle(nullptr);
            return;
        }
        connection->call(callOfTheBus(QStringLiteral("Hello")), limit, opening->context(),
                         [opening, connection](const QDBusPendingCall& answer) {
                             const QDBusPendingReply<QString> reply = answer;
                             opening->settle(reply.isError() ? nullptr : connection);
                         });
    };
    try {
        BackgroundTask::run(connectToPeer, greet, BackgroundTask::AtEnd::abandoned);
    } catch (const std::system_error&) {
        QMetaObject::invokeMethod(
            context, [opening] { opening->settle(nullptr); }, Qt::QueuedConnection);
    }
}

BusConnection::BusConnection(QString name) : name_(std::move(name)) {}

BusConnection::~BusConnection() {
    QDBusConnection::disconnectFromPeer(name_);
}

void BusConnection::call(const QDBusMessage& message, std::chrono::milliseconds limit, QObject* context,
                         Answered answered) {
    const QDBusPendingCall pending = QDBusConnection(name_).asyncCall(message, static_cast<int>(limit.count()));
    if (pending.isFinished()) {
        // The connection is lost; a watcher would never tell.
        QMetaObject::invokeMethod(
            context, [pending, answered = std::move(answered)] { answered(pending); }, Qt::QueuedConnection);
        return;
    }
    auto* const watcher = new QDBusPendingCallWatcher(pending, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, answered = std::move(answered)] { answered(*watcher); });
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, &QObject::deleteLater);
}

void BusConnection::listen(const QString& service, const QString& path, const QString& interface, const QString& signal,
                           QObject* receiver, const char* slot) {
    QDBusConnection connection(name_);
    // A peer has no names, so the bus sorts out whose signals these are.
    connection.connect(QString(), path, interface, signal, receiver, slot);
    QDBusMessage match = callOfTheBus(QStringLiteral("AddMatch"));
    match.setArguments({QStringLiteral("type='signal',sender='%1',path='%2',interface='%3',member='%4'")
                            .arg(service, path, interface, signal)});
    connection.asyncCall(match);
}
