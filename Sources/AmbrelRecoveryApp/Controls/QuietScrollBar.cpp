#include "AmbrelRecoveryApp/Controls/QuietScrollBar.h"

#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

QuietScrollBar::QuietScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setFixedWidth(thickness);
}

QSize QuietScrollBar::sizeHint() const {
    return {thickness, QScrollBar::sizeHint().height()};
}

void QuietScrollBar::paintEvent(QPaintEvent* /*event*/) {
    if (minimum() == maximum()) {
        return;
    }
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect slider = style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    const bool isLit = isSliderDown() || underMouse();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(RecoveryPalette::scrollBar(isLit));
    painter.drawRoundedRect(QRectF(slider).adjusted(2, 2, -2, -2), (thickness - 4) / 2.0, (thickness - 4) / 2.0);
}
