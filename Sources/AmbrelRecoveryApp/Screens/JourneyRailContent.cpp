#include "AmbrelRecoveryApp/Screens/JourneyRailContent.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

JourneyRailContent journeyRailContent(const RecoveryScreenState& state) {
    using AmbrelStrings::localized;
    using Phase = RecoveryScreenState::Phase;

    const icu::Locale locale = AmbrelStrings::currentFormattingLocale();
    const Phase phase = state.phase;
    JourneyRailContent content{
        .brand = QStringLiteral("Ambrel"),
        .product = QStringLiteral("Recovery"),
        .steps = {{
            {.number = QStringLiteral("01"),
             .title = localized(AmbrelStrings::recoveryChoosePackageAction()),
             .isActive = phase == Phase::chooseBackup || phase == Phase::preparingPackage || phase == Phase::inspecting,
             .isCompleted = state.snapshots != nullptr,
             .spokenCheckmark = {}},
            {.number = QStringLiteral("02"),
             .title = localized(AmbrelStrings::recoverySnapshotsTitle()),
             .isActive = phase == Phase::snapshots || phase == Phase::exporting,
             .isCompleted = phase == Phase::complete,
             .spokenCheckmark = {}},
            {.number = QStringLiteral("03"),
             .title = localized(AmbrelStrings::filesExportCompletedTitle()),
             .isActive = phase == Phase::complete,
             .isCompleted = false,
             .spokenCheckmark = {}},
        }},
        .noAccount = RecoveryAppCopy::noAccount(locale),
        .readOnly = RecoveryAppCopy::readOnly(locale),
    };
    for (JourneyRailContent::Step& step : content.steps) {
        step.spokenCheckmark =
            step.isCompleted ? RecoveryAppCopy::localized(RecoveryAppCopy::Text::stepCompleted) : QString();
    }
    return content;
}
