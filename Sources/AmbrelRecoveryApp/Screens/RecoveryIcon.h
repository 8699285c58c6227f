#pragma once

#include <QIcon>

/// The icon that task bars and window switchers show for the application: its symbol on its accent color. Main thread.
namespace RecoveryIcon {

/// Returns the icon in every size that desktops usually request.
QIcon icon();

} // namespace RecoveryIcon
