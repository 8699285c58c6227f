#include "AmbrelRecoveryApp/Controls/FittedText.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <cmath>

QSize FittedText::size(const QString& text, const QFont& font) {
    constexpr qreal unlimitedWidth = 1e6;
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    QSizeF size(0, QFontMetricsF(font).height());
    if (line.isValid()) {
        line.setLineWidth(unlimitedWidth);
        size = {line.naturalTextWidth(), std::ceil(line.ascent()) + std::ceil(line.descent())};
    }
    layout.endLayout();
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

QFont FittedText::font(const QString& text, QFont font, int width, int leastSize) {
    while (font.pixelSize() > leastSize && size(text, font).width() > width) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    return font;
}
