#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButton.h"

#include "AmbrelRecoveryApp/Controls/FocusRing.h"
#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/RecoveryPalette.h"

#include <QPainter>

namespace {

constexpr int buttonHeight = 50;
constexpr double pressedFillOpacity = 0.76;

} // namespace

PrimaryRecoveryButton::PrimaryRecoveryButton(std::optional<RecoverySymbol> symbol, QWidget* parent)
    : RecoveryButton(symbol, recoveryFont(15, QFont::DemiBold), buttonHeight, parent) {}

void PrimaryRecoveryButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : RecoveryPalette::disabledOpacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(RecoveryPalette::withOpacity(RecoveryPalette::copper(), isDown() ? pressedFillOpacity : 1));
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    paintLabel(painter, RecoveryPalette::onCopper());
    if (FocusRing::isShown(*this)) {
        FocusRing::paint(painter, QRectF(rect()).adjusted(2, 2, -2, -2), cornerRadius - 2, RecoveryPalette::primary());
    }
}
