#include "AmbrelRecoveryApp/Desktop/BusConnection.h"

#include "AmbrelRecoveryApp/Desktop/BusListener.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPointer>
#include <QTimer>
#include <QUuid>

#include <future>
#include <system_error>
#include <utility>

namespace {

constexpr std::chrono::seconds ownerLimit(10);

/// The name of the bus itself, which nobody else can own, and of its interface.
const QString bus = QStringLiteral("org.freedesktop.DBus");
const QString busObject = QStringLiteral("/org/freedesktop/DBus");

QDBusMessage callOfTheBus(const QString& method, const QVariantList& arguments = {}) {
    QDBusMessage call = QDBusMessage::createMethodCall(bus, busObject, bus, method);
    call.setArguments(arguments);
    return call;
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
    MainThread::require();
    const auto opening = std::make_shared<Opening>(context, std::move(completion));
    QTimer::singleShot(limit, context, [opening] { opening->settle(nullptr); });
    const QString name = QUuid::createUuid().toString();
    // Connected as to a peer, because Qt blocks on the bus's greeting when it connects to a bus.
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

BusConnection::BusConnection(QString name) : name_(std::move(name)), owners_{{bus, bus}} {}

BusConnection::~BusConnection() {
    // Deleted first: a signal that is still queued for a listener notifies the connection if the listener is gone.
    qDeleteAll(findChildren<BusListener*>(Qt::FindDirectChildrenOnly));
    QDBusConnection::disconnectFromPeer(name_);
}

void BusConnection::call(const QDBusMessage& message, std::chrono::milliseconds limit, QObject* context,
                         Answered answered) {
    MainThread::require();
    const QDBusPendingCall pending = QDBusConnection(name_).asyncCall(message, static_cast<int>(limit.count()));
    if (pending.isFinished()) {
        // The connection is lost; a watcher would never emit finished().
        QMetaObject::invokeMethod(
            context, [pending, answered = std::move(answered)] { answered(pending); }, Qt::QueuedConnection);
        return;
    }
    auto* const watcher = new QDBusPendingCallWatcher(pending, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, answered = std::move(answered)] { answered(*watcher); });
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, &QObject::deleteLater);
}

void BusConnection::listen(const Signal& signal, const Heard& heard) {
    MainThread::require();
    if (!owners_.contains(signal.service)) {
        follow(signal.service);
    }
    const auto received = [this, service = signal.service, heard](const QDBusMessage& message) {
        const QString owner = owners_.value(service);
        if (!owner.isEmpty() && message.service() == owner) {
            heard(message.arguments());
        }
    };
    QString rule = QStringLiteral("type='signal',sender='%1',path='%2',interface='%3',member='%4'")
                       .arg(signal.service, signal.path, signal.interface, signal.name);
    QStringList firstArgument;
    if (!signal.firstArgument.isEmpty()) {
        rule += QStringLiteral(",arg0='%1'").arg(signal.firstArgument);
        firstArgument << signal.firstArgument;
    }
    QDBusConnection connection(name_);
    // Qt treats the bus as a peer, on which services have no names. The sender is checked above instead.
    connection.connect(QString(), signal.path, signal.interface, signal.name, firstArgument, signal.signature,
                       new BusListener(received, this), SLOT(receive(QDBusMessage)));
    connection.asyncCall(callOfTheBus(QStringLiteral("AddMatch"), {rule}));
}

/// Tracks the owner of the service's name. The bus announces a new owner before it forwards any of its signals.
void BusConnection::follow(const QString& service) {
    owners_.insert(service, QString());
    listen({.service = bus,
            .path = busObject,
            .interface = bus,
            .name = QStringLiteral("NameOwnerChanged"),
            .signature = QStringLiteral("sss"),
            .firstArgument = service},
           [this](const QVariantList& change) { owners_.insert(change[0].toString(), change[2].toString()); });
    call(callOfTheBus(QStringLiteral("GetNameOwner"), {service}), ownerLimit, this,
         [this, service](const QDBusPendingCall& answer) {
             const QDBusPendingReply<QString> owner = answer;
             if (!owner.isError()) {
                 owners_.insert(service, owner.value());
             }
         });
}
