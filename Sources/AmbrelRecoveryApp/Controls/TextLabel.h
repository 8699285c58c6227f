#pragma once

#include <QCache>
#include <QFont>
#include <QLabel>
#include <QString>

/// A text in one font and colour, as wide as it is given and as high as it needs: it wraps, between words where it can,
/// and is never cut off. Plain text; its alignment is leading,
/// and the middle of what height it is given.
class TextLabel final : public QLabel {
    Q_OBJECT

public:
    /// Where the direction of the text comes from.
    enum class Direction {
        /// From the interface: a sentence of the interface's language.
        interfaceLanguage,
        /// From the text's first letter: a name or a path of the user's.
        text
    };

    /// `linePitch` is the distance of two lines in device-independent pixels before the texts are enlarged, in every
    /// script; 0 is what each line's letters ask for.
    TextLabel(const QFont& font, const QColor& color, QWidget* parent = nullptr, int linePitch = 0);

    void setColor(const QColor& color);
    void setDirection(Direction direction);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The heights for the last widths, of this text in this font.
    struct MeasuredHeights {
        QString text;
        QFont font;
        QCache<int, int> ofWidths{8};
    };

    int measuredHeight(int width) const;

    const int linePitch_;
    QColor color_;
    Direction direction_ = Direction::interfaceLanguage;
    mutable MeasuredHeights measured_;
};
