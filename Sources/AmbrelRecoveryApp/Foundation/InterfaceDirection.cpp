#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <algorithm>

Qt::LayoutDirection interfaceDirection() {
    const AmbrelInterfaceLanguage shown = AmbrelStrings::currentInterfaceLanguage().shown();
    return shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

Qt::LayoutDirection paragraphDirection(const QString& text, Qt::LayoutDirection interfaceDirection) {
    const bool hasRightToLeft = std::ranges::any_of(text, [](QChar character) {
        return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
    });
    return hasRightToLeft ? interfaceDirection : Qt::LeftToRight;
}
