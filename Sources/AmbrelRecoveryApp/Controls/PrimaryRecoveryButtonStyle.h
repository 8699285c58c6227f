#pragma once

#include <QColor>
#include <QFont>

/// How the button of a screen's main action looks: a label on copper. Main thread, with an application object.
namespace PrimaryRecoveryButtonStyle {

/// In device-independent pixels.
inline constexpr int leastHeight = 50;

QFont labelFont();
QColor fill(bool isPressed);
/// Dark on the bright fill, bright on the darker one of a button that is pressed or cannot be used.
QColor label(bool isDimmed);

} // namespace PrimaryRecoveryButtonStyle
