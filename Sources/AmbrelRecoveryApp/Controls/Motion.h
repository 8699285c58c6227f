#pragma once

#include <chrono>

class QWidget;

/// How the interface moves. Main thread.
namespace Motion {

/// How long a change of what `widget` shows takes: short, or no time at all where less motion is wanted or the style
/// gives animations no time.
std::chrono::milliseconds duration(const QWidget& widget);

/// Whether less motion is wanted, which it is not at first. What moves already goes on to its end.
void setReduced(bool isReduced);

} // namespace Motion
