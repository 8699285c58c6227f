#include "AmbrelRecoveryApp/Desktop/DesktopNotifier.h"

#include "AmbrelRecoveryApp/Desktop/BusConnection.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QPointer>

#include <optional>
#include <utility>

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString object = QStringLiteral("/org/freedesktop/Notifications");
const QString applicationName = QStringLiteral("Ambrel Recovery");
/// The action for a click on the notification itself.
const QString defaultAction = QStringLiteral("default");
/// The variable from which Qt takes the permission to bring a window forward.
constexpr const char* activationToken = "XDG_ACTIVATION_TOKEN";

QString withoutMarkup(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&amp;"))
        .replace(QLatin1Char('<'), QLatin1String("&lt;"))
        .replace(QLatin1Char('>'), QLatin1String("&gt;"));
}

BusConnection::Call callOfTheService(const QString& method, const QVariantList& arguments = {}) {
    return {.service = service, .path = object, .interface = service, .method = method, .arguments = arguments};
}

} // namespace

/// One notification, from the request to show it until it is closed. It drops its connection when it is destroyed.
class DesktopNotifier::Notification final : public QObject {
public:
    Notification(QString theText, QObject* parent) : QObject(parent), text(std::move(theText)) {}

    const QString text;
    std::shared_ptr<BusConnection> bus;
    /// The service's identifier for the notification while it is shown.
    std::optional<uint> identifier;
};

DesktopNotifier::~DesktopNotifier() {
    withdraw();
}

void DesktopNotifier::show(const QString& text) {
    MainThread::require();
    withdraw();
    current_ = new Notification(text, this);
    BusConnection::open(QDBusConnection::SessionBus, limit_, current_,
                        [this](const std::shared_ptr<BusConnection>& bus) {
                            if (bus) {
                                current_->bus = bus;
                                askForCapabilities();
                            }
                        });
}

void DesktopNotifier::withdraw() {
    MainThread::require();
    const std::unique_ptr<Notification> last(std::exchange(current_, nullptr));
    if (last && last->identifier) {
        close(last->bus, *last->identifier);
    }
}

void DesktopNotifier::askForCapabilities() {
    // Sent before the action. Wayland desktops bring a window forward only with such a token.
    listen(QStringLiteral("ActivationToken"), QStringLiteral("us"),
           [](const QVariant& token) { qputenv(activationToken, token.toString().toUtf8()); });
    listen(QStringLiteral("ActionInvoked"), QStringLiteral("us"), [this](const QVariant& action) {
        if (action == defaultAction) {
            emit activated();
            // Only Wayland has used it up. It is not for the engine.
            qunsetenv(activationToken);
        }
    });
    listen(QStringLiteral("NotificationClosed"), QStringLiteral("uu"),
           [this](const QVariant& /*reason*/) { forget(); });
    current_->bus->call(callOfTheService(QStringLiteral("GetCapabilities")), current_,
                        [this](const QDBusPendingCall& answer) {
                            const QDBusPendingReply<QStringList> capabilities = answer;
                            if (capabilities.isError()) {
                                forget();
                            } else {
                                notify(capabilities.value().contains(QStringLiteral("body-markup")));
                            }
                        });
}

void DesktopNotifier::notify(bool understandsMarkup) {
    constexpr uint replacingNone = 0;
    constexpr int theServicesOwnTime = -1;
    const QString text = understandsMarkup ? withoutMarkup(current_->text) : current_->text;
    // Some services take the icon from the desktop entry, others by its name, which is the same.
    const QString entry = QGuiApplication::desktopFileName();
    const QVariantMap hints = {{QStringLiteral("desktop-entry"), entry}};
    const auto call = callOfTheService(QStringLiteral("Notify"),
                                       {applicationName, replacingNone, entry, applicationName, text,
                                        QStringList{defaultAction, applicationName}, hints, theServicesOwnTime});
    // Answered to this object: a notification that was withdrawn meanwhile has to be closed.
    const auto answered = [this, asking = QPointer(current_), bus = current_->bus](const QDBusPendingCall& answer) {
        const QDBusPendingReply<uint> identifier = answer;
        if (!asking) {
            if (!identifier.isError()) {
                close(bus, identifier.value());
            }
        } else if (identifier.isError()) {
            forget();
        } else {
            asking->identifier = identifier.value();
        }
    };
    current_->bus->call(call, this, answered);
}

void DesktopNotifier::listen(const QString& signal, const QString& signature,
                             const std::function<void(const QVariant&)>& heard) {
    const BusConnection::Signal heardOf{
        .service = service, .path = object, .interface = service, .name = signal, .signature = signature};
    current_->bus->listen(heardOf, [notification = QPointer(current_), heard](const QVariantList& arguments) {
        // The service sends signals about all notifications to everybody.
        if (notification && arguments[0].toUInt() == notification->identifier) {
            heard(arguments[1]);
        }
    });
}

void DesktopNotifier::close(const std::shared_ptr<BusConnection>& bus, uint identifier) {
    // The connection stays open until the service has answered, so that the request is not lost.
    bus->call(callOfTheService(QStringLiteral("CloseNotification"), {identifier}), this,
              [bus](const QDBusPendingCall&) {});
}

void DesktopNotifier::forget() {
    // It lives until the event loop runs, and would otherwise recognize another signal about it.
    current_->identifier.reset();
    current_->bus.reset();
    std::exchange(current_, nullptr)->deleteLater();
}
