#include "AmbrelRecoveryApp/Platform/DesktopMotionPreference.h"

#include "AmbrelRecoveryApp/Controls/Motion.h"
#include "AmbrelRecoveryApp/Platform/BusAddress.h"
#include "AmbrelRecoveryApp/Platform/BusConnection.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QMap>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

/// One setting of a desktop, and whether a value of it asks for less motion.
struct Setting {
    const char* group;
    const char* key;
    bool (*asksForLess)(const QVariant& value);
};

bool isFalse(const QVariant& value) {
    return value.typeId() == QMetaType::Bool && !value.toBool();
}

/// Written as text by one version of the desktop and as a number by another.
bool isZero(const QVariant& value) {
    bool isNumber = false;
    return value.toDouble(&isNumber) <= 0 && isNumber;
}

bool isOne(const QVariant& value) {
    return value.typeId() == QMetaType::UInt && value.toUInt() == 1;
}

constexpr std::array settings{
    Setting{"org.freedesktop.appearance", "reduced-motion", isOne},
    Setting{"org.gnome.desktop.interface", "enable-animations", isFalse},
    Setting{"org.kde.kdeglobals.KDE", "AnimationDurationFactor", isZero},
};

QDBusMessage questionForAll() {
    QStringList groups;
    for (const Setting& setting : settings) {
        groups.append(QString::fromLatin1(setting.group));
    }
    QDBusMessage question = QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("ReadAll"));
    question.setArguments({groups});
    return question;
}

} // namespace

DesktopMotionPreference::DesktopMotionPreference(std::chrono::milliseconds limit) : limit_(limit) {
    BusConnection::open(BusAddress::ofSessionBus(), limit_, this, [this](std::shared_ptr<BusConnection> bus) {
        bus_ = std::move(bus);
        if (bus_) {
            ask();
        }
    });
}

DesktopMotionPreference::~DesktopMotionPreference() = default;

void DesktopMotionPreference::ask() {
    // First, so that no change is missed between the answer and the listening.
    bus_->listen({.service = service,
                  .path = object,
                  .interface = interface,
                  .name = QStringLiteral("SettingChanged"),
                  .signature = QStringLiteral("ssv")},
                 [this](const QVariantList& change) {
                     take(change[0].toString(), change[1].toString(), qvariant_cast<QDBusVariant>(change[2]).variant());
                 });
    bus_->call(questionForAll(), limit_, this, [this](const QDBusPendingCall& answer) { takeAll(answer.reply()); });
}

void DesktopMotionPreference::takeAll(const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QLatin1String("a{sa{sv}}")) {
        return;
    }
    const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(answer.arguments().constFirst());
    for (const Setting& setting : settings) {
        const QString group = QString::fromLatin1(setting.group);
        const QString key = QString::fromLatin1(setting.key);
        take(group, key, groups.value(group).value(key));
    }
}

void DesktopMotionPreference::take(const QString& group, const QString& key, const QVariant& value) {
    const auto* const setting = std::ranges::find_if(settings, [&](const Setting& candidate) {
        return group == QLatin1String(candidate.group) && key == QLatin1String(candidate.key);
    });
    if (setting == settings.end()) {
        return;
    }
    if (setting->asksForLess(value)) {
        asking_.insert(group);
    } else {
        asking_.erase(group);
    }
    Motion::setReduced(!asking_.empty());
}
