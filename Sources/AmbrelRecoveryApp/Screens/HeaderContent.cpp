#include "AmbrelRecoveryApp/Screens/HeaderContent.h"

#include "AmbrelLocalization/AmbrelStrings.h"

HeaderContent headerContent() {
    return {
        .badge = QStringLiteral("AMBREL RECOVERY"),
        .title = QStringLiteral("Ambrel Recovery"),
        .body = AmbrelStrings::localized(AmbrelStrings::recoveryChoosePackageBody()),
    };
}
