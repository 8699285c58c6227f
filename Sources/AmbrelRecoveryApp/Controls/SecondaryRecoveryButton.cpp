#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/RecoveryPalette.h"

#include <QPainter>

namespace {

constexpr int buttonHeight = 42;
constexpr double pressedOpacity = 0.78;

} // namespace

SecondaryRecoveryButton::SecondaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent)
    : RecoveryButton(symbol, recoveryFont(15, QFont::Medium), buttonHeight, parent) {}

void SecondaryRecoveryButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity((isEnabled() ? 1 : RecoveryPalette::disabledOpacity) * (isDown() ? pressedOpacity : 1));
    painter.setPen(Qt::NoPen);
    painter.setBrush(RecoveryPalette::raised());
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    paintLabel(painter, RecoveryPalette::primary());
    if (FocusRing::isShown(*this)) {
        FocusRing::paint(painter, rect(), cornerRadius, RecoveryPalette::copper());
    }
}
