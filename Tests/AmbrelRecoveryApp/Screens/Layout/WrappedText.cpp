#include "WrappedText.h"

#include <QGlyphRun>
#include <QRawFont>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>

namespace {

bool isFileName(const QString& text) {
    return text.endsWith(QStringLiteral(".ambrel"));
}

/// How high the letters of a line are, which may be less than what their font asks for.
qreal inkHeight(const QTextLine& line) {
    QRectF ink;
    for (const QGlyphRun& run : line.glyphRuns()) {
        const QList<quint32> glyphs = run.glyphIndexes();
        for (qsizetype index = 0; index < glyphs.size(); ++index) {
            ink |= run.rawFont().boundingRect(glyphs[index]).translated(run.positions()[index]);
        }
    }
    return ink.height();
}

/// Whether a line may end before `position`.
bool mayBreak(const QString& text, int position) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    finder.setPosition(position);
    return position == text.size() || finder.isAtBoundary();
}

} // namespace

WrappedText::WrappedText(const QString& text, const QFont& font, qreal width) {
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        width_ = std::max(width_, line.naturalTextWidth());
        height_ += inkHeight(line);
        const int end = line.textStart() + line.textLength();
        if (tornWord_.isEmpty() && !isFileName(text) && !mayBreak(text, end)) {
            tornWord_ = text.mid(line.textStart(), line.textLength());
        }
    }
    layout.endLayout();
}

QSizeF WrappedText::sizeOnOneLine(const QString& text, const QFont& font) {
    constexpr qreal unlimited = 1e6;
    const WrappedText line(text, font, unlimited);
    return {line.width(), line.height()};
}
