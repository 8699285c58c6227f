#pragma once

#include <QtGlobal>

/// How much the texts of the interface are enlarged. Main thread.
namespace TextScale {

/// The largest factor, for which everything is laid out and tested.
inline constexpr qreal largest = 1.5;

/// Initially 1.
qreal factor();

/// Sets the factor, clamped to the range from 1 to `largest`. Affects only what is created afterwards.
void setFactor(qreal factor);

/// Whether texts are enlarged. If so, some content that is otherwise side by side is stacked.
bool isEnlarged();

/// Returns `size` multiplied by the factor, in whole device-independent pixels.
int scaled(int size);

} // namespace TextScale
