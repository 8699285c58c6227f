#include "AmbrelRecoveryApp/Controls/CenteredText.h"

#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"

#include <QPainter>

#include <cmath>

void CenteredText::paint(QPainter& painter, const QRectF& rect, const QString& text) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    const qreal x = rect.left() + (rect.width() - metrics.horizontalAdvance(text)) / 2;
    const qreal baseline = rect.top() + std::ceil((rect.height() + metrics.capHeight()) / 2);
    const Qt::LayoutDirection previous = painter.layoutDirection();
    // A painter uses the direction of the application, which is not that of the window.
    painter.setLayoutDirection(paragraphDirection(text, Qt::RightToLeft));
    painter.drawText(QPointF(x, baseline), text);
    painter.setLayoutDirection(previous);
}
