#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryFileViewer.h"

#include <QObject>

#include <chrono>
#include <map>
#include <memory>

class BusConnection;

/// Shows files in the desktop's file manager: through the file manager's service on the session bus, which can select
/// an item, or else by opening the folder that contains the item. Never blocks.
class DesktopFileViewer final : public QObject, public RecoveryFileViewer {
    Q_OBJECT

public:
    /// `answerLimit` is the total time that the bus and a file manager, which may have to be started first, have to
    /// answer. After that, the folder that contains the item is opened.
    explicit DesktopFileViewer(std::chrono::milliseconds answerLimit = std::chrono::seconds(10));

    /// `folder` must be absolute. A repeated call for the same folder does nothing until the first is answered.
    void reveal(const std::filesystem::path& folder) override;

signals:
    /// No file manager has confirmed that it shows `folder`. The folder that contains it was opened instead, provided
    /// that some application on this desktop opens folders; whether that worked is unknown.
    void revealUnconfirmed(const std::filesystem::path& folder);

private:
    struct Attempt {
        std::filesystem::path folder;
        unsigned number = 0;
    };

    void askFileManager(const Attempt& attempt, const std::shared_ptr<BusConnection>& bus);
    void settle(const Attempt& attempt, bool isShown);

    const std::chrono::milliseconds answerLimit_;
    /// The numbers of the unanswered attempts, by folder.
    std::map<std::filesystem::path, unsigned> unanswered_;
    unsigned lastNumber_ = 0;
};
