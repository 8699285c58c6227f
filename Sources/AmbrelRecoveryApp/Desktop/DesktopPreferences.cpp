#include "AmbrelRecoveryApp/Desktop/DesktopPreferences.h"

#include "AmbrelRecoveryApp/Controls/Motion.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Desktop/BusConnection.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QStringList>

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString gnomeAccessibility = QStringLiteral("org.gnome.desktop.a11y.interface");
const QString kde = QStringLiteral("org.kde.kdeglobals.KDE");

const QStringList groups{appearance, gnome, gnomeAccessibility, kde};

bool isBoolean(const QVariant& value, bool expected) {
    return value.typeId() == QMetaType::Bool && value.toBool() == expected;
}

/// Some desktop versions send this value as text, others as a number.
bool isZero(const QVariant& value) {
    bool isNumber = false;
    return value.toDouble(&isNumber) <= 0 && isNumber;
}

bool isOne(const QVariant& value) {
    return value.typeId() == QMetaType::UInt && value.toUInt() == 1;
}

/// On X11, Qt also reads the desktop's text size and enlarges everything by it.
qreal textScale(const QVariant& value) {
    const bool isEnlargedByToolkit = QGuiApplication::platformName() == QStringLiteral("xcb");
    const qreal factor = value.typeId() == QMetaType::Double ? value.toDouble() : 1;
    return isEnlargedByToolkit ? factor / qGuiApp->devicePixelRatio() : factor;
}

} // namespace

DesktopPreferences::DesktopPreferences(std::chrono::milliseconds limit) {
    BusConnection::open(QDBusConnection::SessionBus, limit, this, [this](const std::shared_ptr<BusConnection>& bus) {
        bus_ = bus;
        if (bus_) {
            ask();
        }
    });
}

void DesktopPreferences::ask() {
    // Subscribed first, so that no change is missed between the answer and the subscription.
    bus_->listen({.service = service,
                  .path = object,
                  .interface = interface,
                  .name = QStringLiteral("SettingChanged"),
                  .signature = QStringLiteral("ssv")},
                 [this](const QVariantList& change) {
                     const QString group = change[0].toString();
                     if (groups.contains(group)) {
                         settings_[group][change[1].toString()] = qvariant_cast<QDBusVariant>(change[2]).variant();
                         apply();
                     }
                 });
    bus_->call({.service = service,
                .path = object,
                .interface = interface,
                .method = QStringLiteral("ReadAll"),
                .arguments = {groups}},
               this, [this](const QDBusPendingCall& answer) {
                   const QDBusMessage settings = answer.reply();
                   if (!answer.isError() && settings.signature() == QLatin1String("a{sa{sv}}")) {
                       settings_ = qdbus_cast<QMap<QString, QVariantMap>>(settings.arguments().constFirst());
                       apply();
                   }
               });
}

QVariant DesktopPreferences::setting(const QString& group, const char* key) const {
    return settings_.value(group).value(QLatin1String(key));
}

void DesktopPreferences::apply() {
    Motion::setReduced(isOne(setting(appearance, "reduced-motion")) ||
                       isBoolean(setting(gnome, "enable-animations"), false) ||
                       isZero(setting(kde, "AnimationDurationFactor")));
    const bool hadContrast = RecoveryPalette::isContrastIncreased();
    const qreal scaleBefore = TextScale::factor();
    RecoveryPalette::setContrastIncreased(isOne(setting(appearance, "contrast")) ||
                                          isBoolean(setting(gnomeAccessibility, "high-contrast"), true));
    TextScale::setFactor(textScale(setting(gnome, "text-scaling-factor")));
    if (hadContrast != RecoveryPalette::isContrastIncreased() || scaleBefore != TextScale::factor()) {
        emit lookChanged();
    }
}
