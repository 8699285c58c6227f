#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButtonStyle.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"

#include <QPainter>

PrimaryRecoveryButton::PrimaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent)
    : RecoveryButton(symbol, PrimaryRecoveryButtonStyle::labelFont(), PrimaryRecoveryButtonStyle::leastHeight, parent) {
}

void PrimaryRecoveryButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : RecoveryPalette::disabledOpacity);
    RoundedPanel::paint(painter, rect(), cornerRadius, PrimaryRecoveryButtonStyle::fill(isDown()), Qt::transparent);
    paintLabel(painter, PrimaryRecoveryButtonStyle::label(isDown() || !isEnabled()));
    FocusRing::paint(painter, *this, QRectF(rect()).adjusted(2, 2, -2, -2), cornerRadius - 2,
                     RecoveryPalette::primary());
}
