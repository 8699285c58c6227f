#include "AmbrelRecoveryApp/Screens/ChooseBackupContent.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Foundation/FileNameText.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"
#include "AmbrelRecoveryApp/Screens/OperationProgress.h"

#include <algorithm>

namespace {

using AmbrelStrings::localized;
using Phase = RecoveryScreenState::Phase;

ChooseBackupContent::Package packageOf(const RecoveryScreenState& state) {
    ChooseBackupContent::Package package{
        .name = std::nullopt,
        .kind = QStringLiteral(".ambrel"),
        .hint = RecoveryAppCopy::chooseOrDrop(AmbrelStrings::currentFormattingLocale()),
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

QString labelOf(AmbrelRecoveryAppFactor factor) {
    switch (factor) {
    case AmbrelRecoveryAppFactor::backupPassphrase:
        return localized(AmbrelStrings::backupFactorPassphrase());
    case AmbrelRecoveryAppFactor::recoveryKey:
        return localized(AmbrelStrings::backupFactorRecoveryKey());
    }
    Q_UNREACHABLE();
}

QString promptOf(AmbrelRecoveryAppFactor factor) {
    switch (factor) {
    case AmbrelRecoveryAppFactor::backupPassphrase:
        return localized(AmbrelStrings::recoveryPromptBackupPassphrase());
    case AmbrelRecoveryAppFactor::recoveryKey:
        return localized(AmbrelStrings::recoveryPromptRecoveryKey());
    }
    Q_UNREACHABLE();
}

ChooseBackupContent::Credential credentialOf(const RecoveryScreenState& state) {
    ChooseBackupContent::Credential credential{
        .title = localized(AmbrelStrings::recoveryCredentialTitle()),
        .body = localized(AmbrelStrings::recoveryCredentialBody()),
        .kindLabel = localized(AmbrelStrings::recoveryCredentialKind()),
        .factorLabels = {},
        .chosenFactor =
            static_cast<int>(std::ranges::find(allRecoveryAppFactors, state.factor) - allRecoveryAppFactors.begin()),
        .prompt = promptOf(state.factor),
        .capsLockHint = RecoveryAppCopy::capsLock(AmbrelStrings::currentFormattingLocale()),
        .canEdit = !state.isBusy(),
    };
    for (const AmbrelRecoveryAppFactor factor : allRecoveryAppFactors) {
        credential.factorLabels << labelOf(factor);
    }
    return credential;
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
