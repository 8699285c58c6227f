#include "AmbrelRecoveryApp/Desktop/SleepInhibition.h"

#include "AmbrelRecoveryApp/Desktop/BusAddress.h"
#include "AmbrelRecoveryApp/Desktop/BusConnection.h"

#include <QDBusPendingReply>

#include <utility>

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");

QDBusMessage portalCall(const QString& reason) {
    // Inhibits idling as well: on some desktops, nothing else can be inhibited.
    constexpr uint suspend = 4;
    constexpr uint idle = 8;
    QDBusMessage call =
        QDBusMessage::createMethodCall(portalService, QStringLiteral("/org/freedesktop/portal/desktop"),
                                       QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
    call.setArguments({QString(), suspend | idle, QVariantMap{{QStringLiteral("reason"), reason}}});
    return call;
}

QDBusMessage closing(const QDBusObjectPath& request) {
    return QDBusMessage::createMethodCall(portalService, request.path(),
                                          QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close"));
}

QDBusMessage loginManagerCall(const QString& reason) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    call.setArguments(
        {QStringLiteral("sleep:idle"), QStringLiteral("Ambrel Recovery"), reason, QStringLiteral("block")});
    return call;
}

} // namespace

SleepInhibition::SleepInhibition(std::shared_ptr<BusConnection> portal, QString reason, std::chrono::milliseconds limit,
                                 QObject* parent)
    : QObject(parent), portal_(std::move(portal)), reason_(std::move(reason)), limit_(limit) {
    portal_ ? askPortal() : askLoginManager();
}

SleepInhibition::~SleepInhibition() = default;

void SleepInhibition::release() {
    isReleased_ = true;
    // Without a receiver for a pending answer, the request could stay granted, so the answer is awaited.
    if (!isAsking_) {
        giveBack();
    }
}

void SleepInhibition::giveBack() {
    if (!request_.path().isEmpty()) {
        portal_->call(closing(request_), limit_, portal_.get(), [](const QDBusPendingCall&) {});
    }
    descriptor_ = QDBusUnixFileDescriptor();
    deleteLater();
}

void SleepInhibition::askPortal() {
    isAsking_ = true;
    portal_->call(portalCall(reason_), limit_, this, [this](const QDBusPendingCall& answer) {
        const QDBusPendingReply<QDBusObjectPath> reply = answer;
        isAsking_ = false;
        if (reply.isError()) {
            portal_.reset();
            emit portalFailed();
        } else {
            request_ = reply.value();
        }
        if (isReleased_) {
            giveBack();
        } else if (reply.isError()) {
            askLoginManager();
        }
    });
}

void SleepInhibition::askLoginManager() {
    BusConnection::open(BusAddress::ofSystemBus(), limit_, this, [this](const std::shared_ptr<BusConnection>& bus) {
        if (isReleased_ || !bus) {
            return;
        }
        isAsking_ = true;
        bus->call(loginManagerCall(reason_), limit_, this, [this, bus](const QDBusPendingCall& answer) {
            const QDBusPendingReply<QDBusUnixFileDescriptor> reply = answer;
            isAsking_ = false;
            if (!reply.isError()) {
                descriptor_ = reply.value();
            }
            if (isReleased_) {
                giveBack();
            }
        });
    });
}
