#pragma once

#include <QFont>
#include <QSize>
#include <QString>

/// Single-line text that has to fit a given width. Main thread.
namespace FittedText {

/// The size of `text` on one line, including glyphs from fallback fonts.
QSize size(const QString& text, const QFont& font);

/// Returns `font`, reduced in size until `text` is no wider than `width`, but to no less than `leastSize` pixels.
QFont font(const QString& text, QFont font, int width, int leastSize = 1);

} // namespace FittedText
