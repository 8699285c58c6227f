#include "AmbrelRecoveryApp/Controls/CenteredText.h"

#include <QPainter>

#include <cmath>

void CenteredText::paint(QPainter& painter, const QRectF& rect, const QString& text) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    const qreal x = rect.left() + (rect.width() - metrics.horizontalAdvance(text)) / 2;
    const qreal baseline = rect.top() + std::ceil((rect.height() + metrics.capHeight()) / 2);
    painter.drawText(QPointF(x, baseline), text);
}
