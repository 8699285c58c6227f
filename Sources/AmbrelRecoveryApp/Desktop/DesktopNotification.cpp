#include "AmbrelRecoveryApp/Desktop/DesktopNotification.h"

#include "AmbrelRecoveryApp/Desktop/BusAddress.h"
#include "AmbrelRecoveryApp/Desktop/BusConnection.h"

#include <QDBusMessage>
#include <QDBusPendingReply>

#include <utility>

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString object = QStringLiteral("/org/freedesktop/Notifications");
const QString applicationName = QStringLiteral("Ambrel Recovery");
/// The action for a click on the notification itself.
const QString defaultAction = QStringLiteral("default");

QString withoutMarkup(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&amp;"))
        .replace(QLatin1Char('<'), QLatin1String("&lt;"))
        .replace(QLatin1Char('>'), QLatin1String("&gt;"));
}

} // namespace

DesktopNotification::DesktopNotification(QString text, std::chrono::milliseconds limit, QObject* parent)
    : QObject(parent), text_(std::move(text)), limit_(limit) {
    BusConnection::open(BusAddress::ofSessionBus(), limit_, this, [this](std::shared_ptr<BusConnection> bus) {
        bus_ = std::move(bus);
        if (bus_ && !isWithdrawn_) {
            askForCapabilities();
        }
    });
}

DesktopNotification::~DesktopNotification() = default;

void DesktopNotification::withdraw() {
    if (std::exchange(isWithdrawn_, true) || isUnanswered_) {
        return;
    }
    if (!identifier_) {
        end();
        return;
    }
    // The connection stays open until the service has answered, so that the request is not lost.
    call(QStringLiteral("CloseNotification"), {*identifier_}, [this](const QDBusPendingCall&) { end(); });
}

void DesktopNotification::askForCapabilities() {
    isUnanswered_ = true;
    listen(QStringLiteral("ActionInvoked"), QStringLiteral("us"), [this](const QVariant& action) {
        if (action == defaultAction) {
            emit activated();
        }
    });
    listen(QStringLiteral("NotificationClosed"), QStringLiteral("uu"), [this](const QVariant& /*reason*/) { end(); });
    call(QStringLiteral("GetCapabilities"), {}, [this](const QDBusPendingCall& answer) {
        const QDBusPendingReply<QStringList> capabilities = answer;
        isUnanswered_ = false;
        if (isWithdrawn_ || capabilities.isError()) {
            end();
        } else {
            notify(capabilities.value().contains(QStringLiteral("body-markup")));
        }
    });
}

void DesktopNotification::notify(bool understandsMarkup) {
    constexpr uint replacingNone = 0;
    constexpr int theServicesOwnTime = -1;
    isUnanswered_ = true;
    call(QStringLiteral("Notify"),
         {applicationName, replacingNone, QString(), applicationName, understandsMarkup ? withoutMarkup(text_) : text_,
          QStringList{defaultAction, applicationName}, QVariantMap(), theServicesOwnTime},
         [this](const QDBusPendingCall& answer) { storeIdentifier(answer); });
}

void DesktopNotification::storeIdentifier(const QDBusPendingCall& answer) {
    const QDBusPendingReply<uint> identifier = answer;
    isUnanswered_ = false;
    if (identifier.isError()) {
        end();
        return;
    }
    identifier_ = identifier.value();
    if (std::exchange(isWithdrawn_, false)) {
        withdraw();
    }
}

void DesktopNotification::call(const QString& method, const QVariantList& arguments,
                               std::function<void(const QDBusPendingCall&)> answered) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, object, service, method);
    message.setArguments(arguments);
    bus_->call(message, limit_, this, std::move(answered));
}

void DesktopNotification::listen(const QString& signal, const QString& signature,
                                 const std::function<void(const QVariant&)>& heard) {
    bus_->listen({.service = service, .path = object, .interface = service, .name = signal, .signature = signature},
                 [this, heard](const QVariantList& arguments) {
                     // The service sends signals about all notifications to everybody.
                     if (arguments[0].toUInt() == identifier_) {
                         heard(arguments[1]);
                     }
                 });
}

void DesktopNotification::end() {
    identifier_.reset();
    bus_.reset();
    if (isWithdrawn_) {
        deleteLater();
    }
}
