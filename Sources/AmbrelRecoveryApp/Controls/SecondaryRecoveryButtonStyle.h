#pragma once

#include <QColor>
#include <QFont>

/// The look of the button for any other action: a label on a slightly raised background. Main thread; requires the
/// application object.
namespace SecondaryRecoveryButtonStyle {

/// In device-independent pixels.
inline constexpr int usualHeight = 42;

/// The opacity of the whole button while it is pressed.
inline constexpr double pressedOpacity = 0.78;

QFont labelFont();
QColor fill();
QColor label();

} // namespace SecondaryRecoveryButtonStyle
