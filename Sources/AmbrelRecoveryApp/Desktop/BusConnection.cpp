#include "AmbrelRecoveryApp/Desktop/BusConnection.h"

#include "AmbrelRecoveryApp/Desktop/BusListener.h"
#include "AmbrelRecoveryApp/Foundation/BackgroundTask.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QPointer>
#include <QTimer>
#include <QUuid>

#include <future>
#include <system_error>
#include <utility>

namespace {

/// The name of the bus itself, which nobody else can own, and of its interface.
const QString bus = QStringLiteral("org.freedesktop.DBus");
const QString busObject = QStringLiteral("/org/freedesktop/DBus");

BusConnection::Call callOfTheBus(const QString& method, const QVariantList& arguments = {}) {
    return {.service = bus, .path = busObject, .interface = bus, .method = method, .arguments = arguments};
}

/// An empty string if there is no session bus: Qt would start one.
QString addressOfSessionBus() {
    const QByteArray given = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!given.isEmpty()) {
        return given.startsWith("autolaunch:") ? QString() : QFile::decodeName(given);
    }
    const QByteArray runtimeFolder = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray socket = runtimeFolder + "/bus";
    if (runtimeFolder.isEmpty() || !QFile::exists(QFile::decodeName(socket))) {
        return {};
    }
    return QString::fromLatin1("unix:path=" + socket.toPercentEncoding("/", "~"));
}

QString addressOfSystemBus() {
    const QByteArray given = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    return given.isEmpty() ? QStringLiteral("unix:path=/run/dbus/system_bus_socket") : QFile::decodeName(given);
}

} // namespace

void BusConnection::open(QDBusConnection::BusType type, std::chrono::milliseconds limit, QObject* context,
                         const Completion& completion) {
    MainThread::require();
    // Calls the completion exactly once, whatever happens first.
    const auto settle = [context = QPointer(context), unsettled = std::make_shared<Completion>(completion)](
                            std::shared_ptr<BusConnection> connection) {
        const Completion settled = std::exchange(*unsettled, nullptr);
        if (settled && context) {
            settled(std::move(connection));
        }
    };
    QTimer::singleShot(limit, context, [settle] { settle(nullptr); });
    const QString address = type == QDBusConnection::SessionBus ? addressOfSessionBus() : addressOfSystemBus();
    const QString name = QUuid::createUuid().toString();
    // Connected as to a peer, because Qt blocks on the bus's greeting when it connects to a bus.
    const auto connectToPeer = [address, name] {
        return !address.isEmpty() && QDBusConnection::connectToPeer(address, name).isConnected();
    };
    const auto greet = [settle, context = QPointer(context), name, limit](std::future<bool>& isConnected) {
        const std::shared_ptr<BusConnection> connection(new BusConnection(name, limit));
        if (!isConnected.get() || !context) {
            settle(nullptr);
            return;
        }
        connection->call(callOfTheBus(QStringLiteral("Hello")), context,
                         [settle, connection](const QDBusPendingCall& answer) {
                             const QDBusPendingReply<QString> reply = answer;
                             settle(reply.isError() ? nullptr : connection);
                         });
    };
    try {
        BackgroundTask::run(connectToPeer, greet, BackgroundTask::AtEnd::abandoned);
    } catch (const std::system_error&) {
        QMetaObject::invokeMethod(
            context, [settle] { settle(nullptr); }, Qt::QueuedConnection);
    }
}

BusConnection::BusConnection(QString name, std::chrono::milliseconds limit)
    : name_(std::move(name)), limit_(limit), owners_{{bus, bus}} {}

BusConnection::~BusConnection() {
    // Deleted first: a signal that is still queued for a listener notifies the connection if the listener is gone.
    qDeleteAll(findChildren<BusListener*>(Qt::FindDirectChildrenOnly));
    QDBusConnection::disconnectFromPeer(name_);
}

void BusConnection::call(const Call& call, QObject* context, const Answered& answered) {
    MainThread::require();
    QDBusMessage message = QDBusMessage::createMethodCall(call.service, call.path, call.interface, call.method);
    message.setArguments(call.arguments);
    const QDBusPendingCall pending = QDBusConnection(name_).asyncCall(message, static_cast<int>(limit_.count()));
    if (pending.isFinished()) {
        // The connection is lost; a watcher would never emit finished().
        QMetaObject::invokeMethod(
            context, [pending, answered] { answered(pending); }, Qt::QueuedConnection);
        return;
    }
    auto* const watcher = new QDBusPendingCallWatcher(pending, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, answered] { answered(*watcher); });
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
    // Qt treats the bus as a peer, on which services have no names. The sender is checked above instead.
    QDBusConnection(name_).connect(QString(), signal.path, signal.interface, signal.name, firstArgument,
                                   signal.signature, new BusListener(received, this), SLOT(receive(QDBusMessage)));
    call(callOfTheBus(QStringLiteral("AddMatch"), {rule}), this, [](const QDBusPendingCall&) {});
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
    call(callOfTheBus(QStringLiteral("GetNameOwner"), {service}), this,
         [this, service](const QDBusPendingCall& answer) {
             const QDBusPendingReply<QString> owner = answer;
             if (!owner.isError()) {
                 owners_.insert(service, owner.value());
             }
         });
}
