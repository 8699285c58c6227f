#pragma once

#include <QIcon>

/// The picture that task bars and switchers show for the application: its symbol on its accent. Main thread.
namespace RecoveryIcon {

/// The picture in every size that desktops usually ask for.
QIcon icon();

} // namespace RecoveryIcon
