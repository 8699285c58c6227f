#include "AmbrelRecoveryApp/Screens/SnapshotRowLayout.h"

#include "AmbrelRecoveryApp/Controls/RecoveryFont.h"

#include <QFontMetricsF>
#include <QSize>
#include <QStyle>
#include <QTextLayout>

#include <cmath>

namespace {

constexpr int padding = 17;
constexpr int borderWidth = 1;
constexpr int inset = padding + borderWidth;
constexpr int dateSize = 15;
constexpr int factsSize = 12;
constexpr int payloadSize = 12;
constexpr int markSize = 22;
constexpr int markSpacing = 15;
constexpr int lineSpacing = 4;
constexpr int payloadSymbolSize = 16;
constexpr int payloadSpacing = 7;

QFont dateFont() {
    return recoveryFont(dateSize, QFont::DemiBold);
}

QFont factsFont() {
    return recoveryFont(factsSize, QFont::Normal);
}

/// The size of `text` on one line, in which the font may have to borrow letters from another one.
QSize sizeOf(const QString& text, const QFont& font) {
    constexpr qreal unlimitedWidth = 1e6;
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    QSizeF size(0, QFontMetricsF(font).height());
    if (line.isValid()) {
        line.setLineWidth(unlimitedWidth);
        size = {line.naturalTextWidth(), std::round(line.ascent()) + std::round(line.descent())};
    }
    layout.endLayout();
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

/// `font`, or a smaller one in which `text` is not wider than `width`.
QFont fitted(const QString& text, QFont font, int width) {
    while (font.pixelSize() > 1 && sizeOf(text, font).width() > width) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    return font;
}

/// The facts as they are drawn. From right to left each keeps its own direction, so that a size in Latin letters is not
/// torn apart.
QString drawnFacts(const SnapshotRowContent& content, Qt::LayoutDirection direction) {
    if (direction == Qt::LeftToRight) {
        return content.factsLine();
    }
    constexpr QChar firstStrongIsolate(0x2068);
    constexpr QChar popDirectionalIsolate(0x2069);
    SnapshotRowContent isolated = content;
    for (QString& fact : isolated.facts) {
        fact = firstStrongIsolate + fact + popDirectionalIsolate;
    }
    return isolated.factsLine();
}

} // namespace

SnapshotRowLayout SnapshotRowLayout::of(const SnapshotRowContent& content, const QRect& row,
                                        Qt::LayoutDirection direction) {
    const auto mirrored = [&](int left, int top, int width, int height) {
        return QStyle::visualRect(direction, row, QRect(left, top, width, height));
    };
    const auto centered = [&](int left, int size) {
        return mirrored(left, row.top() + (row.height() - size) / 2, size, size);
    };
    const auto text = [&](const QString& shown, const QFont& font, const QRect& place) {
        return Text{.text = shown, .font = fitted(shown, font, place.width()), .place = place};
    };
    const QFont payloadFont = recoveryFont(payloadSize, QFont::Medium);
    const int payloadWidth = sizeOf(content.payload, payloadFont).width();
    const int payloadLeft = row.left() + row.width() - inset - payloadWidth;
    const int symbolLeft = payloadLeft - payloadSpacing - payloadSymbolSize;

    const int leading = row.left() + inset + markSize + markSpacing;
    const int width = symbolLeft - markSpacing - leading;
    const int texts = row.height() - 2 * inset - lineSpacing;
    const int dateTop = row.top() + inset;
    const int dateHeight = sizeOf(content.date, dateFont()).height();
    return {
        .mark = centered(row.left() + inset, markSize),
        .date = text(content.date, dateFont(), mirrored(leading, dateTop, width, dateHeight)),
        .facts = text(drawnFacts(content, direction), factsFont(),
                      mirrored(leading, dateTop + dateHeight + lineSpacing, width, texts - dateHeight)),
        .payloadSymbol = centered(symbolLeft, payloadSymbolSize),
        .payload = text(content.payload, payloadFont, mirrored(payloadLeft, row.top(), payloadWidth, row.height())),
    };
}

int SnapshotRowLayout::heightOf(const SnapshotRowContent& content, Qt::LayoutDirection direction) {
    return 2 * inset + sizeOf(content.date, dateFont()).height() + lineSpacing +
           sizeOf(drawnFacts(content, direction), factsFont()).height();
}
