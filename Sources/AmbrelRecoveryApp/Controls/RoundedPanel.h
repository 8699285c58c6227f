#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

/// The shape of cards, rows and fields.
namespace RoundedPanel {

/// Fills `rect` with `fill`, its corners rounded by `radius`, and draws a border one device-independent pixel wide on
/// its inner edge.
void paint(QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill, const QColor& border);

} // namespace RoundedPanel
