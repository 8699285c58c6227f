#include "AmbrelRecoveryApp/Screens/CompletionContent.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

CompletionContent completionContent(const RecoveryScreenState& state) {
    using AmbrelStrings::localized;

    const icu::Locale locale = AmbrelStrings::currentFormattingLocale();
    CompletionContent content{
        .title = localized(AmbrelStrings::filesExportCompletedTitle()),
        .exported = std::nullopt,
        .pathLabel = localized(AmbrelStrings::filesExportFolder()),
        .revealLabel = RecoveryAppCopy::showInFinder(locale),
        .chooseAnotherLabel = localized(AmbrelStrings::recoveryChooseAnotherPackageAction()),
    };
    if (state.exportResult) {
        content.exported = localized(AmbrelStrings::filesExportExported()) + QStringLiteral(": ") +
                           AmbrelStrings::formattedNumber(state.exportResult->recoveredItemCount, locale);
    }
    return content;
}
