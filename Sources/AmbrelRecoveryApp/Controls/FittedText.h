#pragma once

#include <QFont>
#include <QSize>
#include <QString>

/// Texts on one line that have to fit into a place. Main thread.
namespace FittedText {

/// The size of `text` on one line, for which `font` may have to borrow letters from another one.
QSize size(const QString& text, const QFont& font);

/// `font`, or a smaller one in which `text` is not wider than `width`, but none smaller than `leastSize` pixels.
QFont font(const QString& text, QFont font, int width, int leastSize = 1);

} // namespace FittedText
