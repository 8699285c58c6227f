#include "AmbrelLocalization/SystemTimeZone.h"

#include "AmbrelLocalization/SystemTimeZoneWatch.h"

SystemTimeZone SystemTimeZone::current() {
    static SystemTimeZoneWatch watch("/etc/localtime");
    return watch.current();
}
