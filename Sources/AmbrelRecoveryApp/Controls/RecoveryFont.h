#pragma once

#include <QFont>

/// The system font at a fixed size. `size` is in device-independent pixels before the texts are enlarged (TextScale),
/// `tracking` the additional space after each letter in the same unit. Main thread, with an application object.
QFont recoveryFont(int size, QFont::Weight weight, qreal tracking = 0);
