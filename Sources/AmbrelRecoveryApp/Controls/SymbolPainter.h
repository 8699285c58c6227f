#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QColor>
#include <QRectF>

class QPainter;

/// Draws the application's symbols. Main thread.
namespace SymbolPainter {

/// Draws `symbol` in `color` into `rect`, sharp at the scale of the painter's device. The drawn pixels are kept, so
/// that the next drawing of the same symbol, size and colour costs a copy.
void paint(QPainter& painter, RecoverySymbol symbol, const QRectF& rect, const QColor& color);

} // namespace SymbolPainter
