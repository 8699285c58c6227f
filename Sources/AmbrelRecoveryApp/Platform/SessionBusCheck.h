#pragma once

#include <QString>

#include <chrono>

/// The toolkit waits for the session bus, for its accessibility and without a limit, before there is a window. A bus
/// that says nothing, or nothing that a bus says, would keep the user from the backup.
namespace SessionBusCheck {

/// Whether a bus of this address begins a conversation as it should within `limit`. True, too, where nothing listens,
/// which the toolkit notices at once, and where the bus is not reached through a socket of this machine. Any thread.
bool mayBeAsked(const QString& address, std::chrono::milliseconds limit);

/// Has this process go on as without a session bus where that bus may not be asked. Before there are other threads and
/// an application object.
void passBy(std::chrono::milliseconds limit);

} // namespace SessionBusCheck
