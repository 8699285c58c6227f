#pragma once

#include <QProxyStyle>

/// A style of a desktop that wants this much motion.
class MovingStyle : public QProxyStyle {
public:
    explicit MovingStyle(int milliseconds) : milliseconds_(milliseconds) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        return hint == SH_Widget_Animation_Duration ? milliseconds_
                                                    : QProxyStyle::styleHint(hint, option, widget, result);
    }

private:
    const int milliseconds_;
};
