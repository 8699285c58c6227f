#include "AmbrelRecoveryApp/Screens/InterfaceLanguage.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/SystemLocale.h"

AmbrelInterfaceLanguage shownInterfaceLanguage() {
    const AmbrelInterfaceLanguage language = AmbrelStrings::currentInterfaceLanguage();
    if (language == AmbrelInterfaceLanguage::system) {
        const QString shown = AmbrelStrings::resolvedSystemLocaleIdentifier(SystemLocale::preferredLanguages());
        return AmbrelInterfaceLanguage::fromStoredValue(shown);
    }
    return language;
}
