#include "AmbrelRecoveryApp/Controls/PrimaryRecoveryButtonStyle.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"

namespace {

constexpr double pressedFillOpacity = 0.76;

} // namespace

QFont PrimaryRecoveryButtonStyle::labelFont() {
    return recoveryFont(15, QFont::DemiBold);
}

QColor PrimaryRecoveryButtonStyle::fill(bool isPressed) {
    return RecoveryPalette::withOpacity(RecoveryPalette::copper(), isPressed ? pressedFillOpacity : 1);
}

QColor PrimaryRecoveryButtonStyle::label(bool isDimmed) {
    return isDimmed ? RecoveryPalette::onDimmedCopper() : RecoveryPalette::onCopper();
}
