#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"

#include <QPainter>

PrimaryRecoveryButton::PrimaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent)
    : RecoveryButton(symbol, recoveryFont(15, QFont::DemiBold), 50, parent) {}

QColor PrimaryRecoveryButton::fill(bool isPressed) {
    constexpr double pressedOpacity = 0.76;
    return RecoveryPalette::withOpacity(RecoveryPalette::copper(), isPressed ? pressedOpacity : 1);
}

QColor PrimaryRecoveryButton::labelColor(bool isDimmed) {
    return isDimmed ? RecoveryPalette::onDimmedCopper() : RecoveryPalette::onCopper();
}

void PrimaryRecoveryButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : RecoveryPalette::disabledOpacity);
    RoundedPanel::paint(painter, rect(), cornerRadius, fill(isDown()), Qt::transparent);
    paintLabel(painter, labelColor(isDown() || !isEnabled()));
    FocusRing::paint(painter, *this, QRectF(rect()).adjusted(2, 2, -2, -2), cornerRadius - 2,
                     RecoveryPalette::primary());
}
