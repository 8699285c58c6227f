#include "AmbrelRecoveryApp/Screens/InterfaceDirection.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/SystemLocale.h"

Qt::LayoutDirection interfaceDirection() {
    AmbrelInterfaceLanguage language = AmbrelStrings::currentInterfaceLanguage();
    if (language == AmbrelInterfaceLanguage::system) {
        const QString shown = AmbrelStrings::resolvedSystemLocaleIdentifier(SystemLocale::preferredLanguages());
        language = AmbrelInterfaceLanguage::fromStoredValue(shown);
    }
    return language.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}
