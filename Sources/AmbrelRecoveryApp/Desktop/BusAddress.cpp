#include "AmbrelRecoveryApp/Desktop/BusAddress.h"

#include <QFile>

QString BusAddress::ofSessionBus() {
    const QByteArray given = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!given.isEmpty()) {
        return given.startsWith("autolaunch:") ? QString() : QFile::decodeName(given);
    }
    const QByteArray runtimeFolder = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray socket = runtimeFolder + "/bus";
    if (runtimeFolder.isEmpty() || !QFile::exists(QFile::decodeName(socket))) {
        return {};
    }
    return QString::fromLatin1("unix:path=" + socket.toPercentEncoding("/", "~"));
}

QString BusAddress::ofSystemBus() {
    const QByteArray given = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    return given.isEmpty() ? QStringLiteral("unix:path=/run/dbus/system_bus_socket") : QFile::decodeName(given);
}
