#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QWidget;

/// The ring around the control with the keyboard focus.
namespace FocusRing {

/// If `control` has the focus, however it got it, and the user last used the keyboard, draws the ring just inside
/// `rect`, with the corners of a shape of `radius`. Input before the first call is not seen. Main thread.
void paint(QPainter& painter, const QWidget& control, const QRectF& rect, qreal radius, const QColor& color);

} // namespace FocusRing
