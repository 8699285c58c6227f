#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButtonStyle.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"

#include <QPainter>

namespace Style = PrimaryRecoveryButtonStyle;

PrimaryRecoveryButton::PrimaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent)
    : RecoveryButton(symbol, Style::labelFont(), Style::leastHeight, parent) {}

void PrimaryRecoveryButton::paintEvent(QPaintEvent* /*event*/) {
    const bool isDimmed = isDown() || !isEnabled();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : RecoveryPalette::disabledOpacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Style::fill(isDown()));
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    paintLabel(painter, Style::label(isDimmed));
    if (FocusRing::isShown(*this)) {
        FocusRing::paint(painter, QRectF(rect()).adjusted(2, 2, -2, -2), cornerRadius - 2, RecoveryPalette::primary());
    }
}
