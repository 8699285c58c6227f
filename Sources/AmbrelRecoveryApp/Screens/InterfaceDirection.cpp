#include "AmbrelRecoveryApp/Screens/InterfaceDirection.h"

#include "AmbrelRecoveryApp/Screens/InterfaceLanguage.h"

Qt::LayoutDirection interfaceDirection() {
    return shownInterfaceLanguage().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}
