#pragma once

#include <QFont>

/// Returns the system font at a fixed size. `size` is in device-independent pixels before enlargement (TextScale).
/// `tracking` is the additional space after each letter in device-independent pixels, and is not enlarged. Main thread;
/// requires the application object.
QFont recoveryFont(int size, QFont::Weight weight, qreal tracking = 0);
