#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButtonStyle.h"

#include <QPainter>

SecondaryRecoveryButton::SecondaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent)
    : RecoveryButton(symbol, SecondaryRecoveryButtonStyle::labelFont(), SecondaryRecoveryButtonStyle::usualHeight,
                     parent) {}

void SecondaryRecoveryButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity((isEnabled() ? 1 : RecoveryPalette::disabledOpacity) *
                       (isDown() ? SecondaryRecoveryButtonStyle::pressedOpacity : 1));
    RoundedPanel::paint(painter, rect(), cornerRadius, SecondaryRecoveryButtonStyle::fill(),
                        RecoveryPalette::outline());
    paintLabel(painter, SecondaryRecoveryButtonStyle::label());
    FocusRing::paint(painter, *this, rect(), cornerRadius, RecoveryPalette::copper());
}
