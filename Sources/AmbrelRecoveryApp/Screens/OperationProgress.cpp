#include "AmbrelRecoveryApp/Screens/OperationProgress.h"

#include "AmbrelLocalization/AmbrelStrings.h"

ProgressRowContent operationProgress(const QString& title, const std::optional<double>& fraction) {
    ProgressRowContent content{
        .fraction = fraction,
        .percent = {},
        .title = title,
        .cancelLabel = AmbrelStrings::localized(AmbrelStrings::recoveryActionCancelRestore()),
    };
    if (fraction) {
        content.percent = AmbrelStrings::formattedPercent(*fraction, AmbrelStrings::currentFormattingLocale());
    }
    return content;
}
