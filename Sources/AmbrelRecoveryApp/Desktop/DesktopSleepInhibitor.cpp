#include "AmbrelRecoveryApp/Desktop/DesktopSleepInhibitor.h"

#include "AmbrelRecoveryApp/Desktop/BusConnection.h"
#include "AmbrelRecoveryApp/Foundation/MainThread.h"

#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QPointer>

#include <utility>

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalObject = QStringLiteral("/org/freedesktop/portal/desktop");

/// A call that every process is allowed to make; its result is not used.
BusConnection::Call introduction() {
    return {.service = portalService,
            .path = portalObject,
            .interface = QStringLiteral("org.freedesktop.portal.Settings"),
            .method = QStringLiteral("ReadAll"),
            .arguments = {QStringList{QStringLiteral("org.freedesktop.appearance")}}};
}

BusConnection::Call portalCall(const QString& reason) {
    // Inhibits idling as well: on some desktops, nothing else can be inhibited.
    constexpr uint suspend = 4;
    constexpr uint idle = 8;
    return {.service = portalService,
            .path = portalObject,
            .interface = QStringLiteral("org.freedesktop.portal.Inhibit"),
            .method = QStringLiteral("Inhibit"),
            .arguments = {QString(), suspend | idle, QVariantMap{{QStringLiteral("reason"), reason}}}};
}

BusConnection::Call loginManagerCall(const QString& reason) {
    return {.service = QStringLiteral("org.freedesktop.login1"),
            .path = QStringLiteral("/org/freedesktop/login1"),
            .interface = QStringLiteral("org.freedesktop.login1.Manager"),
            .method = QStringLiteral("Inhibit"),
            .arguments = {QStringLiteral("sleep:idle"), QStringLiteral("Ambrel Recovery"), reason,
                          QStringLiteral("block")}};
}

} // namespace

/// One request to keep the machine awake. When it is destroyed, so are its connection to the login manager and the
/// descriptor that the login manager granted.
class DesktopSleepInhibitor::Inhibition final : public QObject {
public:
    Inhibition(QString theReason, QObject* parent) : QObject(parent), reason(std::move(theReason)) {}

    const QString reason;
    /// The portal's handle for the request that it granted.
    QString portalRequest;
    QDBusUnixFileDescriptor descriptor;
};

DesktopSleepInhibitor::DesktopSleepInhibitor(std::chrono::milliseconds limit) : limit_(limit) {
    BusConnection::open(QDBusConnection::SessionBus, limit_, this, [this](const std::shared_ptr<BusConnection>& bus) {
        if (bus) {
            bus->call(introduction(), this,
                      [this, bus](const QDBusPendingCall& answer) { portal_ = answer.isError() ? nullptr : bus; });
        }
    });
}

void DesktopSleepInhibitor::begin(const QString& reason) {
    MainThread::require();
    if (current_ == nullptr) {
        current_ = new Inhibition(reason, this);
        if (portal_) {
            askPortal();
        }
        askLoginManager();
    }
}

void DesktopSleepInhibitor::end() {
    MainThread::require();
    const std::unique_ptr<Inhibition> last(std::exchange(current_, nullptr));
    if (last && !last->portalRequest.isEmpty()) {
        closeRequest(last->portalRequest);
    }
}

void DesktopSleepInhibitor::askPortal() {
    // Answered to this object: what is granted when the inhibition is over has to be given back.
    portal_->call(portalCall(current_->reason), this,
                  [this, asking = QPointer(current_)](const QDBusPendingCall& answer) {
                      const QDBusPendingReply<QDBusObjectPath> reply = answer;
                      if (reply.isError()) {
                          // Closing the connection releases whatever the portal has granted or may still grant.
                          portal_ = nullptr;
                      } else if (asking) {
                          asking->portalRequest = reply.value().path();
                      } else {
                          closeRequest(reply.value().path());
                      }
                  });
}

void DesktopSleepInhibitor::askLoginManager() {
    Inhibition* const asking = current_;
    BusConnection::open(
        QDBusConnection::SystemBus, limit_, asking, [asking](const std::shared_ptr<BusConnection>& bus) {
            if (!bus) {
                return;
            }
            bus->call(loginManagerCall(asking->reason), asking, [asking, bus](const QDBusPendingCall& answer) {
                const QDBusPendingReply<QDBusUnixFileDescriptor> reply = answer;
                if (!reply.isError()) {
                    asking->descriptor = reply.value();
                }
            });
        });
}

void DesktopSleepInhibitor::closeRequest(const QString& path) {
    // A connection that was closed meanwhile has released it.
    if (portal_) {
        portal_->call({.service = portalService,
                       .path = path,
                       .interface = QStringLiteral("org.freedesktop.portal.Request"),
                       .method = QStringLiteral("Close")},
                      this, [](const QDBusPendingCall&) {});
    }
}
