#pragma once

#include <QProxyStyle>

/// The style of a field for secrets that paints its panel itself: no panel of the desktop's, room at both sides, and a
/// mask of bullets from the first moment on.
class SecureFieldStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// Keeps `horizontalPadding` device-independent pixels free at both sides, beside what a line edit keeps free by
    /// itself.
    SecureFieldStyle(int horizontalPadding, QObject* parent);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;

private:
    const int horizontalPadding_;
};
