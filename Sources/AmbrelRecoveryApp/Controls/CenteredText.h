#pragma once

#include <QString>

class QPainter;
class QRectF;

/// Single-line text in the middle of a control.
namespace CenteredText {

/// Draws `text` with the painter's font and pen, centered in `rect` by the height of its capital letters.
void paint(QPainter& painter, const QRectF& rect, const QString& text);

} // namespace CenteredText
