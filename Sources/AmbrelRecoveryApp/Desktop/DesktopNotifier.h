#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

#include <chrono>
#include <functional>
#include <memory>

class BusConnection;

/// Notifies the user through the desktop's notification service; shows at most one notification at a time. Shows
/// nothing if there is no service, or if it refuses or does not answer. Never blocks. Main thread.
class DesktopNotifier final : public QObject {
    Q_OBJECT

public:
    /// `limit` applies to the connection to the bus and to each answer of the service.
    explicit DesktopNotifier(std::chrono::milliseconds limit = std::chrono::seconds(10)) : limit_(limit) {}

    /// Removes the notification if it is shown.
    ~DesktopNotifier() override;

    /// Shows `text` (plain text), replacing an earlier notification.
    void show(const QString& text);

    /// Removes the notification: immediately, or as soon as it is shown if that request is pending. Does nothing if
    /// there is none.
    void withdraw();

signals:
    /// The user clicked the notification.
    void activated();

private:
    class Notification;

    void askForCapabilities();
    void notify(bool understandsMarkup);
    /// Calls `heard` with the second argument of each such signal for the current notification.
    void listen(const QString& signal, const QString& signature, const std::function<void(const QVariant&)>& heard);
    void close(const std::shared_ptr<BusConnection>& bus, uint identifier);
    /// The current notification is not shown any more, or never will be.
    void forget();

    const std::chrono::milliseconds limit_;
    /// A child of this object.
    Notification* current_ = nullptr;
};
