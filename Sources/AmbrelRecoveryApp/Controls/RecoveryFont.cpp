#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"

#include <QGuiApplication>

QFont recoveryFont(int size, QFont::Weight weight, qreal tracking) {
    QFont font = QGuiApplication::font();
    font.setPixelSize(size);
    font.setWeight(weight);
    // Hinting moves glyphs to whole pixels, which makes the widths of texts depend on the scale of the display.
    font.setHintingPreference(QFont::PreferNoHinting);
    if (tracking != 0) {
        font.setLetterSpacing(QFont::AbsoluteSpacing, tracking);
    }
    return font;
}
