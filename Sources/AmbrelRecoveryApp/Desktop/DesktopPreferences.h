#pragma once

#include <QMap>
#include <QObject>
#include <QVariant>

#include <chrono>
#include <memory>

class BusConnection;

/// Follows the user's preferences as reported by the desktop's portal and passes them on: reduced motion to Motion,
/// high contrast to RecoveryPalette, text size to TextScale. If there is no portal, or it refuses, does not answer or
/// does not know a preference, the interface keeps its default. Never blocks. Main thread.
class DesktopPreferences final : public QObject {
    Q_OBJECT

public:
    /// `limit` applies to the connection to the bus and to the portal's answer.
    explicit DesktopPreferences(std::chrono::milliseconds limit = std::chrono::seconds(10));

signals:
    /// The contrast or the text size has changed; the view must be rebuilt.
    void lookChanged();

private:
    void ask();
    void apply();
    QVariant setting(const QString& group, const char* key) const;

    std::shared_ptr<BusConnection> bus_;
    /// By group and key.
    QMap<QString, QVariantMap> settings_;
};
