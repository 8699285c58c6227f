#include "AmbrelLocalization/SystemTimeZone.h"

#include <QDateTime>
#include <QTimeZone>

#include <ctime>

std::chrono::seconds SystemTimeZone::offset(std::chrono::sys_seconds time) {
    // Without this, the C library may keep using the first setting that it read.
    ::tzset();
    const std::time_t seconds = time.time_since_epoch().count();
    std::tm local = {};
    return std::chrono::seconds(::localtime_r(&seconds, &local) ? local.tm_gmtoff : 0);
}

std::chrono::seconds SystemTimeZone::offset(std::chrono::sys_seconds time, const QString& name) {
    const QByteArray identifier = name.toUtf8();
    // Qt would treat an empty name as the system's time zone.
    if (!QTimeZone::isTimeZoneIdAvailable(identifier)) {
        return {};
    }
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(time.time_since_epoch().count(), QTimeZone::utc());
    return std::chrono::seconds(QTimeZone(identifier).offsetFromUtc(moment));
}
