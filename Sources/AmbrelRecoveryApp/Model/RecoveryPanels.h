#pragma once

#include <QString>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>

/// The dialogs in which the user chooses files. Main thread.
class RecoveryPanels {
public:
    /// Receives the chosen path, or std::nullopt if the dialog was dismissed. Called exactly once, immediately or
    /// later.
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
        /// The number of bytes that will be written, or std::nullopt if unknown.
        std::optional<std::uint64_t> requiredByteCount;
    };

    RecoveryPanels() = default;
    RecoveryPanels(const RecoveryPanels&) = delete;
    RecoveryPanels& operator=(const RecoveryPanels&) = delete;
    virtual ~RecoveryPanels() = default;

    /// Lets the user choose one existing file or folder; a backup package is chosen as one item and not entered.
    virtual void chooseBackup(const OpenPanel& panel, Completion completion) = 0;

    /// Lets the user name a new item; its folder may be created in the dialog.
    virtual void chooseDestination(const SavePanel& panel, Completion completion) = 0;
};
