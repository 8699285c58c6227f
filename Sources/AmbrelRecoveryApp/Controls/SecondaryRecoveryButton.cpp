#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"
#include "AmbrelRecoveryApp/Controls/RoundedPanel.h"
#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButtonStyle.h"

#include <QPainter>

namespace Style = SecondaryRecoveryButtonStyle;

SecondaryRecoveryButton::SecondaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent)
    : RecoveryButton(symbol, Style::labelFont(), Style::usualHeight, parent) {}

void SecondaryRecoveryButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity((isEnabled() ? 1 : RecoveryPalette::disabledOpacity) * (isDown() ? Style::pressedOpacity : 1));
    RoundedPanel::paint(painter, rect(), cornerRadius, Style::fill(), RecoveryPalette::outline());
    paintLabel(painter, Style::label());
    if (FocusRing::isShown(*this)) {
        FocusRing::paint(painter, rect(), cornerRadius, RecoveryPalette::copper());
    }
}
