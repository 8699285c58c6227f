#pragma once

#include <QMap>
#include <QObject>
#include <QVariant>

#include <chrono>
#include <memory>

class BusConnection;
class QDBusMessage;

/// Follows what the desktop's portal tells of the user's wishes, and hands it on: less motion to Motion, more contrast
/// to RecoveryPalette, larger texts to TextScale. Where there is no portal, or it refuses, does not answer or knows no
/// such wish, the interface is as it was designed. Nothing here waits. Main thread.
class DesktopPreferences final : public QObject {
    Q_OBJECT

public:
    /// `limit` is how long the bus has, and the portal for its answer.
    explicit DesktopPreferences(std::chrono::milliseconds limit = std::chrono::seconds(10));
    ~DesktopPreferences() override;

signals:
    /// Contrast or the size of the texts is another; what is shown is to be made anew.
    void lookChanged();

private:
    void ask();
    void readSettings(const QDBusMessage& answer);
    void changeSetting(const QString& group, const QString& key, const QVariant& value);
    void apply();
    QVariant setting(const QString& group, const char* key) const;

    const std::chrono::milliseconds limit_;
    std::shared_ptr<BusConnection> bus_;
    /// By group and key.
    QMap<QString, QVariantMap> settings_;
};
