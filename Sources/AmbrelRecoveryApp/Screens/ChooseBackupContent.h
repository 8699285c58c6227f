#pragma once

#include "AmbrelRecoveryApp/Controls/ProgressRowContent.h"
#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the screen shows on which a package is chosen, unlocked and inspected.
struct ChooseBackupContent {
    struct Package {
        /// The file name of the chosen package, or none.
        std::optional<QString> name;
        /// What kind of file it is.
        QString kind;
        /// What to do as long as there is none.
        QString hint;
        QString chooseLabel;
        bool canChoose = false;

        bool operator==(const Package&) const = default;
    };

    /// Shown while the package is made readable.
    struct Preparation {
        QString title;
        QString body;
        ProgressRowContent progress;

        bool operator==(const Preparation&) const = default;
    };

    struct Credential {
        QString title;
        QString body;
        QString kindLabel;
        /// One for each factor, in the order of allRecoveryAppFactors.
        QStringList factorLabels;
        int chosenFactor = 0;
        QString prompt;
        /// Shown while Caps Lock is on.
        QString capsLockHint;
        bool canEdit = false;

        bool operator==(const Credential&) const = default;
    };

    Package package;
    std::optional<Preparation> preparation;
    Credential credential;
    /// Shown in the place of the inspect button while the engine inspects.
    std::optional<ProgressRowContent> inspecting;
    QString inspectLabel;
    bool canInspect = false;
    QString footnote;

    bool operator==(const ChooseBackupContent&) const = default;
};

/// The screen in the current interface language. Any thread.
ChooseBackupContent chooseBackupContent(const RecoveryScreenState& state);
