#pragma once

#include <QtGlobal>

/// How much larger than designed the texts of the interface are. Main thread.
namespace TextScale {

/// The largest enlargement: everything is laid out for it, and tested with it.
inline constexpr qreal largest = 1.5;

/// 1 at first.
qreal factor();

/// Takes the nearest factor from 1 to `largest`. What is made from then on follows, and nothing that is there already.
void setFactor(qreal factor);

/// Whether texts are larger than designed: what stands side by side then stands one below the other.
bool isEnlarged();

/// `size`, which goes with texts, in whole device-independent pixels.
int scaled(int size);

} // namespace TextScale
