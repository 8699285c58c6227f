#pragma once

#include <QDBusPendingCall>
#include <QObject>
#include <QString>
#include <QVariant>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class BusConnection;
class QDBusMessage;

/// One notification, from the request to show it until it is closed, through the desktop's notification service. Main
/// thread.
class DesktopNotification final : public QObject {
    Q_OBJECT

public:
    /// Requests that `text` (plain text) be shown. `limit` applies to the connection to the bus and to each answer of
    /// the service.
    DesktopNotification(QString text, std::chrono::milliseconds limit, QObject* parent);
    ~DesktopNotification() override;

    /// Closes the notification: immediately, or as soon as it is shown if that request is pending. This object then
    /// deletes itself.
    void withdraw();

signals:
    /// The user clicked the notification.
    void activated();

private:
    void askForCapabilities();
    void notify(bool understandsMarkup);
    void storeIdentifier(const QDBusPendingCall& answer);
    void call(const QString& method, const QVariantList& arguments,
              std::function<void(const QDBusPendingCall&)> answered);
    /// Calls `heard` with the second argument of each such signal for this notification.
    void listen(const QString& signal, const QString& signature, const std::function<void(const QVariant&)>& heard);
    void end();

    const QString text_;
    const std::chrono::milliseconds limit_;
    bool isUnanswered_ = false;
    bool isWithdrawn_ = false;
    std::shared_ptr<BusConnection> bus_;
    /// The service's identifier for the notification while it is shown.
    std::optional<uint> identifier_;
};
