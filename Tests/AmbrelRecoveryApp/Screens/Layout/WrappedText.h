#pragma once

#include <QFont>
#include <QSizeF>
#include <QString>

/// A text broken into lines of a given width, measured without the help of the widget that shows it.
class WrappedText {
public:
    /// `width` in device-independent pixels.
    WrappedText(const QString& text, const QFont& font, qreal width);

    /// The width of the longest line.
    qreal width() const { return width_; }
    qreal height() const { return height_; }
    /// The end of the first line that ends where the text must not be broken, or an empty text. Names of files may be
    /// broken anywhere.
    const QString& tornWord() const { return tornWord_; }

    static QSizeF sizeOnOneLine(const QString& text, const QFont& font);

private:
    qreal width_ = 0;
    qreal height_ = 0;
    QString tornWord_;
};
