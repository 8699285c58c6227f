#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;

/// Draws the application's symbols. Main thread.
namespace SymbolPainter {

/// Draws `symbol` in `color` into `rect`, sharp at the scale of the painter's device; its strokes are as heavy as a
/// text of `weight`. The drawn pixels are kept, so that the next drawing of the same symbol, size, colour and weight
/// costs a copy.
void paint(QPainter& painter, RecoverySymbol symbol, const QRectF& rect, const QColor& color,
           QFont::Weight weight = QFont::Normal);

} // namespace SymbolPainter
