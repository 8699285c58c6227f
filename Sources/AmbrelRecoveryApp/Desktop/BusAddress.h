#pragma once

#include <QString>

/// Where the message buses are. Main thread.
namespace BusAddress {

/// The address of the user's session bus, or empty where there is none. None is started.
QString ofSessionBus();

/// The address of the system bus.
QString ofSystemBus();

} // namespace BusAddress
