#pragma once

#include <QString>

/// The addresses of the message buses. Main thread.
namespace BusAddress {

/// The address of the user's session bus, or an empty string if there is none. Never starts one.
QString ofSessionBus();

/// The address of the system bus.
QString ofSystemBus();

} // namespace BusAddress
