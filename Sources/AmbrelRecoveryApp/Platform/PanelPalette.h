#pragma once

#include <QPalette>

/// The colours of the file panels.
namespace PanelPalette {

/// The toolkit's colour roles in the application's own colours. Main thread.
QPalette colors();

/// A style sheet for what has a tooltip, which takes the style of the control that it explains.
QString toolTipStyleSheet();

} // namespace PanelPalette
