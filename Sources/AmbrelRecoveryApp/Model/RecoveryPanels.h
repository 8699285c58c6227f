#pragma once

#include <QString>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>

/// The dialogs in which the user names files. Main thread.
class RecoveryPanels {
public:
    /// Takes the chosen path, or none where the dialog was dismissed. Called once, at once or later.
    using Completion = std::function<void(std::optional<std::filesystem::path>)>;

    struct OpenPanel {
        QString title;
        /// The label of the button that confirms.
        QString prompt;
    };

    struct SavePanel {
        QString title;
        /// The label of the button that confirms.
        QString prompt;
        QString proposedName;
        /// How many bytes will be written there; none where it is not known.
        std::optional<std::uint64_t> requiredByteCount;
    };

    RecoveryPanels() = default;
    RecoveryPanels(const RecoveryPanels&) = delete;
    RecoveryPanels& operator=(const RecoveryPanels&) = delete;
    virtual ~RecoveryPanels() = default;

    /// Lets the user choose one existing file or folder; a backup package is chosen as one item and not entered.
    virtual void chooseBackup(const OpenPanel& panel, Completion completion) = 0;

    /// Lets the user name a new item, in a folder that may be made on the way.
    virtual void chooseDestination(const SavePanel& panel, Completion completion) = 0;
};
