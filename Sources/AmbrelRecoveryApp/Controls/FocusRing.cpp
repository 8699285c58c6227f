#include "AmbrelRecoveryApp/Controls/FocusRing.h"

#include "AmbrelRecoveryApp/Controls/LastInput.h"

#include <QPainter>
#include <QWidget>

bool FocusRing::isShown(const QWidget& control) {
    // Called first, because input is only monitored from the first call on.
    return LastInput::wasNavigationKey() && control.hasFocus();
}

void FocusRing::paint(QPainter& painter, const QRectF& rect, qreal radius, const QColor& color) {
    constexpr qreal thickness = 2;
    constexpr qreal inset = thickness / 2;
    painter.setPen(QPen(color, thickness));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
}
