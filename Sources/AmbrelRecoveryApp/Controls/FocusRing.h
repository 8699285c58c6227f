#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QWidget;

/// The ring around the control with the keyboard focus.
namespace FocusRing {

/// Whether `control` shows the ring: it has the focus, however it got it, and the user last used the keyboard.
bool isShown(const QWidget& control);

/// Draws the ring just inside `rect`, with the corners of a shape of `radius`.
void paint(QPainter& painter, const QRectF& rect, qreal radius, const QColor& color);

} // namespace FocusRing
