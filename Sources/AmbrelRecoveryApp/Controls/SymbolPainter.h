#pragma once

#include "AmbrelRecoveryApp/Controls/RecoverySymbol.h"

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;

/// Draws the application's symbols. Main thread.
namespace SymbolPainter {

/// Draws `symbol` in `color` into `rect`, sharp at the scale of the painter's device, with strokes as heavy as text of
/// `weight`. The rendered pixels are cached, so that drawing the same symbol again in the same size, color and weight
/// costs only a copy.
void paint(QPainter& painter, RecoverySymbol symbol, const QRectF& rect, const QColor& color,
           QFont::Weight weight = QFont::Normal);

} // namespace SymbolPainter
