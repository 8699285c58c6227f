#pragma once

#include <chrono>

class QWidget;

/// How the interface moves. Main thread.
namespace Motion {

/// How long a change of what `widget` shows takes: short, or no time at all where the desktop asks for less motion.
std::chrono::milliseconds duration(const QWidget& widget);

} // namespace Motion
