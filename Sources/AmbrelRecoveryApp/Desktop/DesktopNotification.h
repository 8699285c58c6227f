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

/// One notification, from the request to show it to its end, through the desktop's notification service. Main thread.
class DesktopNotification final : public QObject {
    Q_OBJECT

public:
    /// Has `text`, plain text, shown. `limit` is how long the bus has, and the service for each of its answers.
    DesktopNotification(QString text, std::chrono::milliseconds limit, QObject* parent);
    ~DesktopNotification() override;

    /// Takes the notification away: at once, or, where it is only about to be shown, as soon as it is. This object
    /// deletes itself then.
    void withdraw();

signals:
    /// The user picked the notification.
    void activated();

private:
    void askForCapabilities();
    void notify(bool understandsMarkup);
    void storeIdentifier(const QDBusPendingCall& answer);
    void call(const QString& method, const QVariantList& arguments,
              std::function<void(const QDBusPendingCall&)> answered);
    /// Calls `heard` with the second argument of each such signal about this notification.
    void listen(const QString& signal, const QString& signature, const std::function<void(const QVariant&)>& heard);
    void end();

    const QString text_;
    const std::chrono::milliseconds limit_;
    bool isUnanswered_ = false;
    bool isWithdrawn_ = false;
    std::shared_ptr<BusConnection> bus_;
    /// What the service calls the notification while it is shown.
    std::optional<uint> identifier_;
};
