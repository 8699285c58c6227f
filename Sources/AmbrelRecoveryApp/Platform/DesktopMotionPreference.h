#pragma once

#include <QObject>
#include <QVariant>

#include <chrono>
#include <memory>
#include <set>

class BusConnection;
class QDBusMessage;

/// Follows the desktop's wish for less motion, as its portal tells it, and hands it to Motion. Where there is no
/// portal, or it refuses, does not answer or knows no such wish, the interface moves. Nothing here waits. Main thread.
class DesktopMotionPreference final : public QObject {
    Q_OBJECT

public:
    /// `limit` is how long the bus has, and the portal for its answer.
    explicit DesktopMotionPreference(std::chrono::milliseconds limit = std::chrono::seconds(10));
    ~DesktopMotionPreference() override;

private:
    void ask();
    void takeAll(const QDBusMessage& answer);
    void take(const QString& group, const QString& key, const QVariant& value);

    const std::chrono::milliseconds limit_;
    std::shared_ptr<BusConnection> bus_;
    /// The settings that ask for less motion now; any one of them is enough.
    std::set<QString> asking_;
};
