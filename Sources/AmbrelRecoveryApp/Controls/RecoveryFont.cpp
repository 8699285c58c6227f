#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"

#include "AmbrelRecoveryApp/Controls/TextScale.h"

QFont recoveryFont(int size, QFont::Weight weight, qreal tracking) {
    // The application's font, but not a copy of it: a widget inherits everything that is not set here from the
    // application.
    QFont font;
    font.setPixelSize(TextScale::scaled(size));
    font.setWeight(weight);
    // Hinting moves glyphs to whole pixels, which makes the widths of texts depend on the scale of the display.
    font.setHintingPreference(QFont::PreferNoHinting);
    if (tracking != 0) {
        font.setLetterSpacing(QFont::AbsoluteSpacing, tracking);
    }
    return font;
}
