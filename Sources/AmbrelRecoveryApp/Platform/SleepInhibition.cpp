#include "AmbrelRecoveryApp/Platform/SleepInhibition.h"

#include "AmbrelRecoveryApp/Platform/BusAddress.h"
#include "AmbrelRecoveryApp/Platform/BusConnection.h"

#include <QDBusObjectPath>
#include <QDBusPendingReply>

#include <utility>

namespace {

QDBusMessage portalCall(const QString& reason) {
    // Not falling asleep by itself either, since on some desktops nothing but that can be inhibited.
    constexpr uint suspend = 4;
    constexpr uint idle = 8;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
    call.setArguments({QString(), suspend | idle, QVariantMap{{QStringLiteral("reason"), reason}}});
    return call;
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

SleepInhibition::SleepInhibition(QString reason, std::chrono::milliseconds limit, QObject* parent)
    : QObject(parent), reason_(std::move(reason)), limit_(limit) {
    BusConnection::open(BusAddress::ofSessionBus(), limit_, this, [this](std::shared_ptr<BusConnection> bus) {
        bus_ = std::move(bus);
        bus_ ? askPortal() : askLoginManager();
    });
}

SleepInhibition::~SleepInhibition() = default;

void SleepInhibition::release() {
    isReleased_ = true;
    // An answer that finds nobody could leave the request granted, so it is awaited.
    if (state_ != State::asking) {
        bus_.reset();
        descriptor_ = QDBusUnixFileDescriptor();
        deleteLater();
    }
}

void SleepInhibition::askPortal() {
    if (isReleased_) {
        return;
    }
    state_ = State::asking;
    bus_->call(portalCall(reason_), limit_, this, [this](const QDBusPendingCall& answer) {
        const QDBusPendingReply<QDBusObjectPath> reply = answer;
        state_ = reply.isError() ? State::connecting : State::settled;
        if (isReleased_) {
            release();
        } else if (reply.isError()) {
            askLoginManager();
        }
    });
}

void SleepInhibition::askLoginManager() {
    bus_.reset();
    BusConnection::open(BusAddress::ofSystemBus(), limit_, this, [this](const std::shared_ptr<BusConnection>& bus) {
        if (isReleased_ || !bus) {
            return;
        }
        state_ = State::asking;
        bus->call(loginManagerCall(reason_), limit_, this, [this, bus](const QDBusPendingCall& answer) {
            const QDBusPendingReply<QDBusUnixFileDescriptor> reply = answer;
            state_ = State::settled;
            if (isReleased_) {
                release();
            } else if (!reply.isError()) {
                descriptor_ = reply.value();
            }
        });
    });
}
