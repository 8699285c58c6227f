#include "AmbrelRecoveryApp/Controls/SecureFieldStyle.h"

#include <QStyleOption>

SecureFieldStyle::SecureFieldStyle(int horizontalPadding, QObject* parent)
    : QProxyStyle(QStringLiteral("Fusion")), horizontalPadding_(horizontalPadding) {
    setParent(parent);
}

void SecureFieldStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                     const QWidget* widget) const {
    if (element != PE_PanelLineEdit) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

QRect SecureFieldStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    return element == SE_LineEditContents ? option->rect.adjusted(horizontalPadding_, 0, -horizontalPadding_, 0)
                                          : QProxyStyle::subElementRect(element, option, widget);
}

int SecureFieldStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returnData) const {
    constexpr int bullet = 0x2022;
    switch (hint) {
    case SH_LineEdit_PasswordCharacter:
        return bullet;
    case SH_LineEdit_PasswordMaskDelay:
        // No character is ever shown unmasked.
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}
