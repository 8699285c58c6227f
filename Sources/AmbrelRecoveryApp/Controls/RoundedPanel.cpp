#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"

#include <QPainter>

void RoundedPanel::paint(QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill,
                         const QColor& border) {
    constexpr qreal halfBorder = 0.5;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rect, radius, radius);
    painter.setPen(QPen(border, 2 * halfBorder));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect.adjusted(halfBorder, halfBorder, -halfBorder, -halfBorder), radius - halfBorder,
                            radius - halfBorder);
}
