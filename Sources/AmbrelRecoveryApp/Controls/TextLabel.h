#pragma once

#include <QCache>
#include <QFont>
#include <QLabel>
#include <QString>

/// Text in one font and color, as wide as its place and as high as it needs to be. It wraps, between words if possible,
/// and is never cut off. Plain text, aligned to the leading edge and centered vertically.
class TextLabel final : public QLabel {
    Q_OBJECT

public:
    /// `linePitch` is the distance between two lines in device-independent pixels before enlargement (TextScale), in
    /// every script. If it is 0, the letters of each line determine its height.
    TextLabel(const QFont& font, const QColor& color, QWidget* parent = nullptr, int linePitch = 0);

    void setColor(const QColor& color);
    /// Takes the direction of the text from its first letter, as for a name of the user's, and not from the interface.
    void useDirectionOfText();

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The heights for the most recent widths, for this text in this font.
    struct MeasuredHeights {
        QString text;
        QFont font;
        QCache<int, int> ofWidths{8};
    };

    const int linePitch_;
    QColor color_;
    bool usesDirectionOfText_ = false;
    mutable MeasuredHeights measured_;
};
