#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryFileViewer.h"

#include <QObject>

#include <chrono>
#include <map>
#include <memory>

class BusConnection;

/// Shows files in the desktop's file manager: through the file manager's own service on the session bus where there is
/// one, which can select an item, and otherwise by opening the folder that holds it. Never waits for an answer.
class DesktopFileViewer final : public QObject, public RecoveryFileViewer {
    Q_OBJECT

public:
    /// `answerLimit` is how long the bus and a file manager, which may have to be started first, have for an answer
    /// together; after it the folder that holds the item is opened.
    explicit DesktopFileViewer(std::chrono::milliseconds answerLimit = std::chrono::seconds(10));

    /// `folder` is absolute. Asked again for the same folder before there is an answer, this does nothing.
    void reveal(const std::filesystem::path& folder) override;

signals:
    /// No file manager has said that it shows `folder`. The folder that holds it was opened in its place where anything
    /// on this desktop opens folders, of which nothing tells.
    void revealUnconfirmed(const std::filesystem::path& folder);

private:
    struct Attempt {
        std::filesystem::path folder;
        unsigned number = 0;
    };

    void askFileManager(const Attempt& attempt, const std::shared_ptr<BusConnection>& bus);
    void settle(const Attempt& attempt, bool isShown);

    const std::chrono::milliseconds answerLimit_;
    /// The numbers of the attempts that have no answer yet, by folder.
    std::map<std::filesystem::path, unsigned> unanswered_;
    unsigned lastNumber_ = 0;
};
