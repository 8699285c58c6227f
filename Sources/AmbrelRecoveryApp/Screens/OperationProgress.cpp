#include "AmbrelRecoveryApp/Screens/OperationProgress.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Model/RecoveryViewModel.h"

ProgressRowContent operationProgress(const QString& title, const std::optional<double>& fraction) {
    return {
        .fraction = fraction,
        .percent = fraction ? RecoveryViewModel::formattedPercent(*fraction) : QString(),
        .title = title,
        .cancelLabel = AmbrelStrings::localized(AmbrelStrings::recoveryActionCancelRestore()),
    };
}
