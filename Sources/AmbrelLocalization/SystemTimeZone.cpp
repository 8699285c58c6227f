#include "AmbrelLocalization/SystemTimeZone.h"

#include <QDateTime>
#include <QTimeZone>

#include <ctime>

std::chrono::seconds SystemTimeZone::offset(std::chrono::sys_seconds time) {
    // Without this the C library may keep to the setting that it saw first.
    ::tzset();
    const std::time_t seconds = time.time_since_epoch().count();
    std::tm local = {};
    return std::chrono::seconds(::localtime_r(&seconds, &local) ? local.tm_gmtoff : 0);
}

std::chrono::seconds SystemTimeZone::offset(std::chrono::sys_seconds time, const QString& name) {
    const QByteArray identifier = name.toUtf8();
    // The toolkit would take an empty name for the system's zone.
    if (!QTimeZone::isTimeZoneIdAvailable(identifier)) {
        return {};
    }
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(time.time_since_epoch().count(), QTimeZone::utc());
    return std::chrono::seconds(QTimeZone(identifier).offsetFromUtc(moment));
}
