#include "AmbrelRecoveryApp/Desktop/DesktopSleepInhibitor.h"

#include "AmbrelRecoveryApp/Desktop/BusAddress.h"
#include "AmbrelRecoveryApp/Desktop/BusConnection.h"
#include "AmbrelRecoveryApp/Desktop/SleepInhibition.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <utility>

namespace {

/// A question of which nothing is wanted but that it is allowed.
QDBusMessage introduction() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("ReadAll"));
    question.setArguments({QStringList{QStringLiteral("org.freedesktop.appearance")}});
    return question;
}

} // namespace

DesktopSleepInhibitor::DesktopSleepInhibitor(std::chrono::milliseconds limit) : limit_(limit) {
    BusConnection::open(BusAddress::ofSessionBus(), limit_, this, [this](const std::shared_ptr<BusConnection>& bus) {
        if (bus) {
            introduceTo(bus);
        }
    });
}

DesktopSleepInhibitor::~DesktopSleepInhibitor() = default;

void DesktopSleepInhibitor::introduceTo(const std::shared_ptr<BusConnection>& portal) {
    portal->call(introduction(), limit_, this, [this, portal](const QDBusPendingCall& answer) {
        if (!answer.isError()) {
            portal_ = portal;
        }
    });
}

void DesktopSleepInhibitor::begin(const QString& reason) {
    MainThread::require();
    if (current_ == nullptr) {
        current_ = new SleepInhibition(portal_, reason, limit_, this);
        // What the portal still grants is given back with the end of the connection.
        connect(current_, &SleepInhibition::portalFailed, this, [this] { portal_.reset(); });
    }
}

void DesktopSleepInhibitor::end() {
    MainThread::require();
    if (SleepInhibition* const last = std::exchange(current_, nullptr)) {
        last->release();
    }
}
