#pragma once

#include <QColor>
#include <QFont>

/// How the button of any other action looks: a label on a ground that is raised a little from what it lies on. Main
/// thread, with an application object.
namespace SecondaryRecoveryButtonStyle {

/// In device-independent pixels.
inline constexpr int usualHeight = 42;

/// Of the whole button.
inline constexpr double pressedOpacity = 0.78;

QFont labelFont();
QColor fill();
QColor label();

} // namespace SecondaryRecoveryButtonStyle
