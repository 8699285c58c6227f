#pragma once

#include <QColor>
#include <QFont>

/// The look of the button for a screen's main action: a label on copper. Main thread; requires the application object.
namespace PrimaryRecoveryButtonStyle {

/// In device-independent pixels.
inline constexpr int leastHeight = 50;

QFont labelFont();
QColor fill(bool isPressed);
/// Dark on the bright fill; bright on the darker fill of a button that is pressed or disabled.
QColor label(bool isDimmed);

} // namespace PrimaryRecoveryButtonStyle
