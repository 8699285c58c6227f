#include "AmbrelRecoveryApp/Controls/SymbolBadge.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/SymbolPainter.h"

#include <QPainter>

SymbolBadge::SymbolBadge(const Look& look, QWidget* parent) : QWidget(parent), look_(look) {
    setFixedSize(look.size, look.size);
}

void SymbolBadge::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(RecoveryPalette::withOpacity(look_.color, look_.fillOpacity));
    painter.drawRoundedRect(rect(), look_.cornerRadius, look_.cornerRadius);
    QRectF symbolRect(0, 0, look_.symbolSize, look_.symbolSize);
    symbolRect.moveCenter(QRectF(rect()).center());
    SymbolPainter::paint(painter, look_.symbol, symbolRect, look_.color, look_.symbolWeight);
}
