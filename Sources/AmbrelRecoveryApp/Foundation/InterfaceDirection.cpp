#include "AmbrelRecoveryApp/Foundation/InterfaceDirection.h"

#include "AmbrelLocalization/AmbrelStrings.h"

Qt::LayoutDirection interfaceDirection() {
    const AmbrelInterfaceLanguage shown = AmbrelStrings::currentInterfaceLanguage().shown();
    return shown.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}
