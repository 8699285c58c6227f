#include "AmbrelRecoveryApp/Controls/TextLabel.h"

#include "AmbrelRecoveryApp/Controls/TextScale.h"
#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"

#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

/// Wide enough for any text on one line.
constexpr qreal unlimitedWidth = 1e6;

/// The rectangle that the glyphs of a line actually cover.
QRectF inkOf(const QTextLine& line) {
    QRectF ink;
    for (const QGlyphRun& run : line.glyphRuns()) {
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        for (qsizetype index = 0; index < glyphs.size(); ++index) {
            ink |= run.rawFont().boundingRect(glyphs[index]).translated(positions[index]);
        }
    }
    return ink;
}

/// Makes room for letters that are higher than their line, such as those with stacked marks. Returns the new height.
qreal uncut(const QTextLayout& layout, qreal height) {
    if (layout.lineCount() == 0) {
        return height;
    }
    const qreal above = std::ceil(std::max(0.0, -inkOf(layout.lineAt(0)).top()));
    const qreal below = std::ceil(std::max(0.0, inkOf(layout.lineAt(layout.lineCount() - 1)).bottom() - height));
    for (int index = 0; above > 0 && index < layout.lineCount(); ++index) {
        QTextLine line = layout.lineAt(index);
        line.setPosition(line.position() + QPointF(0, above));
    }
    return above + height + below;
}

/// Breaks the text of `layout` into lines of `width` that are `linePitch` apart or, if that is 0, as high as their
/// letters require. Returns the height.
qreal breakIntoLines(QTextLayout& layout, qreal width, qreal linePitch) {
    const QFontMetricsF metrics(layout.font());
    // The font's own letters are centered; those from a taller fallback font share their baseline.
    const qreal baseline = (linePitch - metrics.height()) / 2 + metrics.ascent();
    qreal height = 0;
    layout.beginLayout();
    while (true) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) {
            break;
        }
        line.setLineWidth(width);
        if (linePitch > 0) {
            line.setPosition({0, height + baseline - line.ascent()});
            height += linePitch;
        } else {
            line.setPosition({0, height});
            height += std::round(line.ascent()) + std::round(line.descent());
        }
    }
    layout.endLayout();
    return uncut(layout, height);
}

QTextOption wrapping(Qt::LayoutDirection direction) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(direction);
    return option;
}

} // namespace

TextLabel::TextLabel(const QFont& font, const QColor& color, QWidget* parent, int linePitch)
    : QLabel(parent), linePitch_(TextScale::scaled(linePitch)), color_(color) {
    setTextFormat(Qt::PlainText);
    // Otherwise, every new text would reset height-for-width in the size policy.
    setWordWrap(true);
    setFont(font);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void TextLabel::setColor(const QColor& color) {
    if (color_ != color) {
        color_ = color;
        update();
    }
}

void TextLabel::useDirectionOfText() {
    usesDirectionOfText_ = true;
}

int TextLabel::heightForWidth(int width) const {
    // Nested layouts query the same few heights many times per frame.
    if (measured_.text != text() || measured_.font != font()) {
        measured_.text = text();
        measured_.font = font();
        measured_.ofWidths.clear();
    }
    if (const int* const known = measured_.ofWidths.object(width)) {
        return *known;
    }
    QTextLayout layout(text(), font());
    layout.setTextOption(wrapping(Qt::LayoutDirectionAuto));
    const int height = static_cast<int>(std::ceil(breakIntoLines(layout, width, linePitch_)));
    measured_.ofWidths.insert(width, new int(height));
    return height;
}

QSize TextLabel::sizeHint() const {
    QTextLayout layout(text(), font());
    const qreal height = breakIntoLines(layout, unlimitedWidth, linePitch_);
    return QSizeF(std::ceil(layout.lineAt(0).isValid() ? layout.lineAt(0).naturalTextWidth() : 0), std::ceil(height))
        .toSize();
}

QSize TextLabel::minimumSizeHint() const {
    return {0, static_cast<int>(std::ceil(std::max<qreal>(linePitch_, fontMetrics().height())))};
}

void TextLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(color_);
    QTextLayout layout(text(), font());
    layout.setTextOption(
        wrapping(usesDirectionOfText_ ? Qt::LayoutDirectionAuto : paragraphDirection(text(), layoutDirection())));
    const qreal top = std::ceil((height() - std::ceil(breakIntoLines(layout, width(), linePitch_))) / 2);
    for (int index = 0; index < layout.lineCount(); ++index) {
        const QTextLine line = layout.lineAt(index);
        const qreal leading = layoutDirection() == Qt::RightToLeft ? width() - line.naturalTextWidth() : 0;
        // A line of right-to-left text is already aligned to the right edge of its own width.
        line.draw(&painter, QPointF(leading - line.naturalTextRect().left(), top));
    }
}
