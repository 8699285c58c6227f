#pragma once

#include <QProxyStyle>

/// The style of a field for secrets that paints its own panel: it draws no panel, keeps padding on both sides, and
/// masks typed characters without a delay.
class SecureFieldStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// Keeps `horizontalPadding` device-independent pixels free on both sides, in addition to the line edit's own
    /// margin.
    SecureFieldStyle(int horizontalPadding, QObject* parent);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;

private:
    const int horizontalPadding_;
};
