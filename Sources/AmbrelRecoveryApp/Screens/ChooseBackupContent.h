#pragma once

#include "AmbrelRecoveryApp/Controls/ProgressRowContent.h"
#include "AmbrelRecoveryApp/Screens/RecoveryScreenState.h"

#include <QString>
#include <QStringList>

#include <optional>

/// The content of the screen on which a package is chosen, unlocked and inspected.
struct ChooseBackupContent {
    struct Package {
        /// The file name of the chosen package, or std::nullopt.
        std::optional<QString> name;
        /// The kind of file.
        QString kind;
        /// What to do while no package is chosen.
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
    /// Shown instead of the inspect button while the engine inspects.
    std::optional<ProgressRowContent> inspecting;
    QString inspectLabel;
    bool canInspect = false;
    QString footnote;

    bool operator==(const ChooseBackupContent&) const = default;
};

/// Returns the content in the current interface language. Any thread.
ChooseBackupContent chooseBackupContent(const RecoveryScreenState& state);
