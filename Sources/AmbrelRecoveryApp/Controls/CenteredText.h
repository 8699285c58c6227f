#pragma once

#include <QString>

class QPainter;
class QRectF;

/// Single lines of text in the middle of a control.
namespace CenteredText {

/// Draws `text` with the painter's font and pen so that its capital letters stand in the middle of `rect`.
void paint(QPainter& painter, const QRectF& rect, const QString& text);

} // namespace CenteredText
