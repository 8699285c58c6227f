#include "AmbrelRecoveryApp/Screens/StepAnnouncement.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"
#include "AmbrelRecoveryApp/Screens/CompletionContent.h"
#include "AmbrelRecoveryApp/Screens/SnapshotsContent.h"

#include <QStringList>

namespace {

using AmbrelStrings::localized;
using Phase = RecoveryScreenState::Phase;

/// One per line, because line breaks are read as pauses.
QString sentences(const QStringList& texts) {
    return texts.join(u'\n');
}

QString snapshotsAnnouncement(const RecoveryScreenState& state) {
    const SnapshotsContent content = snapshotsContent(state);
    QStringList texts{content.title};
    if (content.forkNotice) {
        texts << content.forkNotice->title << content.forkNotice->body;
    }
    if (content.emptyText) {
        texts << *content.emptyText;
    }
    return sentences(texts);
}

QString completionAnnouncement(const RecoveryScreenState& state) {
    const CompletionContent content = completionContent(state);
    QStringList texts{content.title};
    if (content.exported) {
        texts << *content.exported;
    }
    return sentences(texts);
}

std::optional<QString> phaseAnnouncement(Phase before, const RecoveryScreenState& after) {
    switch (after.phase) {
    case Phase::chooseBackup:
        // After a cancelled or refused inspection the user is back where they were.
        return before == Phase::preparingPackage || before == Phase::inspecting
                   ? std::nullopt
                   : std::optional(localized(AmbrelStrings::recoveryChoosePackageAction()));
    case Phase::preparingPackage:
        return RecoveryAppCopy::providerPreparationTitle(AmbrelStrings::currentFormattingLocale());
    case Phase::inspecting:
        return localized(AmbrelStrings::recoveryInspecting());
    case Phase::snapshots:
        // After a cancelled export the user is back where they were.
        return before == Phase::exporting ? std::nullopt : std::optional(snapshotsAnnouncement(after));
    case Phase::exporting:
        return localized(AmbrelStrings::filesExportRunning());
    case Phase::complete:
        return completionAnnouncement(after);
    }
    Q_UNREACHABLE();
}

} // namespace

std::optional<QString> stepAnnouncement(const RecoveryScreenState& before, const RecoveryScreenState& after) {
    const std::optional<RecoveryViewModel::PresentedError>& error = after.presentedError;
    if (error && (!before.presentedError || before.presentedError->id != error->id)) {
        return sentences({error->title, error->body});
    }
    return before.phase == after.phase ? std::nullopt : phaseAnnouncement(before.phase, after);
}
