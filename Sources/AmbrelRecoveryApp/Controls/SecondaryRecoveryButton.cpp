#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"

#include <QPainter>

SecondaryRecoveryButton::SecondaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent)
    : RecoveryButton(symbol, recoveryFont(15, QFont::Medium), 42, parent) {}

QColor SecondaryRecoveryButton::fill() {
    return RecoveryPalette::raised();
}

QColor SecondaryRecoveryButton::labelColor() {
    return RecoveryPalette::primary();
}

void SecondaryRecoveryButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity((isEnabled() ? 1 : RecoveryPalette::disabledOpacity) * (isDown() ? pressedOpacity : 1));
    RoundedPanel::paint(painter, rect(), cornerRadius, fill(), RecoveryPalette::outline());
    paintLabel(painter, labelColor());
    FocusRing::paint(painter, *this, rect(), cornerRadius, RecoveryPalette::copper());
}
