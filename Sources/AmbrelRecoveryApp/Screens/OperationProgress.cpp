#include "AmbrelRecoveryApp/Screens/OperationProgress.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

ProgressRowContent operationProgress(const QString& title, const std::optional<double>& fraction) {
    ProgressRowContent content{
        .fraction = fraction,
        .percent = {},
        .title = title,
        .cancelLabel = AmbrelStrings::localized(AmbrelStrings::recoveryActionCancelRestore()),
    };
    if (fraction) {
        content.percent = RecoveryViewModel::formattedPercent(*fraction);
    }
    return content;
}
