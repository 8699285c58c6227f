#pragma once

#include <QPalette>

/// The colours of the file panels.
namespace PanelPalette {

/// The toolkit's colour roles in the application's own colours. Main thread.
QPalette colors();

} // namespace PanelPalette
