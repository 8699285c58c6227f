#include "AmbrelRecoveryApp/Desktop/DesktopSleepInhibitor.h"

#include "AmbrelRecoveryApp/Desktop/BusAddress.h"
#include "AmbrelRecoveryApp/Desktop/BusConnection.h"
#include "AmbrelRecoveryApp/Desktop/SleepInhibition.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <utility>

namespace {

/// A call that every process is allowed to make; its result is not used.
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
        // Closing the connection releases whatever the portal may still grant.
        connect(current_, &SleepInhibition::portalFailed, this, [this] { portal_.reset(); });
    }
}

void DesktopSleepInhibitor::end() {
    MainThread::require();
    if (SleepInhibition* const last = std::exchange(current_, nullptr)) {
        last->release();
    }
}
