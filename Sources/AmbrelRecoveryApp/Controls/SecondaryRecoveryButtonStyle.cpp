#include "AmbrelRecoveryApp/Controls/SecondaryRecoveryButtonStyle.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"
#include "AmbrelRecoveryApp/Controls/RecoveryPalette.h"

QFont SecondaryRecoveryButtonStyle::labelFont() {
    return recoveryFont(15, QFont::Medium);
}

QColor SecondaryRecoveryButtonStyle::fill() {
    return RecoveryPalette::raised();
}

QColor SecondaryRecoveryButtonStyle::label() {
    return RecoveryPalette::primary();
}
