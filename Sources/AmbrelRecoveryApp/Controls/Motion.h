#pragma once

#include <chrono>

class QWidget;

/// The animations of the interface. Main thread.
namespace Motion {

/// The duration of an animated change in `widget`: short, or zero if reduced motion is set or the style disables
/// animations.
std::chrono::milliseconds duration(const QWidget& widget);

/// Sets whether motion is reduced; initially it is not. Running animations continue to their end.
void setReduced(bool isReduced);

} // namespace Motion
