#include "AmbrelRecoveryApp/Screens/ErrorAlertContent.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

std::optional<ErrorAlertContent> errorAlertContent(const RecoveryScreenState& state) {
    if (!state.presentedError) {
        return std::nullopt;
    }
    return ErrorAlertContent{
        .id = state.presentedError->id,
        .title = state.presentedError->title,
        .body = state.presentedError->body,
        .okayLabel = RecoveryAppCopy::okay(AmbrelStrings::currentFormattingLocale()),
    };
}
