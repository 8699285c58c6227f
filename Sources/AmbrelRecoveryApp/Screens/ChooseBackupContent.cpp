#include "AmbrelRecoveryApp/Screens/ChooseBackupContent.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"
#include "AmbrelRecoveryApp/Screens/OperationProgress.h"

namespace {

using AmbrelStrings::localized;
using Phase = RecoveryScreenState::Phase;

ChooseBackupContent::Package packageOf(const RecoveryScreenState& state) {
    ChooseBackupContent::Package package{
        .name = std::nullopt,
        .kind = QStringLiteral(".ambrel"),
        .hint = RecoveryAppCopy::localized(RecoveryAppCopy::Text::chooseOrDrop),
        .chooseLabel = localized(AmbrelStrings::recoveryChoosePackageAction()),
        .canChoose = !state.isBusy(),
    };
    if (state.packageURL) {
        package.name = FileNameText::readable(state.packageURL->filename().native());
    }
    return package;
}

ChooseBackupContent::Preparation preparationOf(const RecoveryScreenState& state) {
    const icu::Locale locale = AmbrelStrings::currentFormattingLocale();
    const QString title = RecoveryAppCopy::providerPreparationTitle(locale);
    return {
        .title = title,
        .body = RecoveryAppCopy::providerPreparation(locale),
        .progress = operationProgress(title, state.packagePreparationProgress),
    };
}

ChooseBackupContent::Credential credentialOf(const RecoveryScreenState& state) {
    const bool isPassphrase = state.factor == AmbrelRecoveryAppFactor::backupPassphrase;
    return {
        .title = localized(AmbrelStrings::recoveryCredentialTitle()),
        .body = localized(AmbrelStrings::recoveryCredentialBody()),
        .kindLabel = localized(AmbrelStrings::recoveryCredentialKind()),
        .factorLabels = {localized(AmbrelStrings::backupFactorPassphrase()),
                         localized(AmbrelStrings::backupFactorRecoveryKey())},
        .chosenFactor = isPassphrase ? 0 : 1,
        .prompt = localized(isPassphrase ? AmbrelStrings::recoveryPromptBackupPassphrase()
                                         : AmbrelStrings::recoveryPromptRecoveryKey()),
        .capsLockHint = RecoveryAppCopy::localized(RecoveryAppCopy::Text::capsLock),
        .canEdit = !state.isBusy(),
    };
}

} // namespace

ChooseBackupContent chooseBackupContent(const RecoveryScreenState& state) {
    ChooseBackupContent content{
        .package = packageOf(state),
        .preparation = std::nullopt,
        .credential = credentialOf(state),
        .inspecting = std::nullopt,
        .inspectLabel = localized(AmbrelStrings::recoveryInspectAction()),
        .canInspect = state.canInspect,
        .footnote = localized(AmbrelStrings::recoveryFirstLaunchFootnote()),
    };
    if (state.phase == Phase::preparingPackage) {
        content.preparation = preparationOf(state);
    }
    if (state.phase == Phase::inspecting) {
        content.inspecting = operationProgress(localized(AmbrelStrings::recoveryInspecting()), std::nullopt);
    }
    return content;
}
