#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryFileViewer.h"

#include <QObject>

#include <chrono>
#include <set>

/// Shows files in the desktop's file manager: through the file manager's service on the session bus, which can select
/// an item, or else by opening the folder that contains the item. Never blocks.
class DesktopFileViewer final : public QObject, public RecoveryFileViewer {
    Q_OBJECT

public:
    /// `limit` applies to the connection to the bus, and again to the answer of a file manager, which may have to be
    /// started first. After that, the folder that contains the item is opened.
    explicit DesktopFileViewer(std::chrono::milliseconds limit = std::chrono::seconds(5)) : limit_(limit) {}

    /// `folder` must be absolute. A repeated call for the same folder does nothing until the first is answered.
    void reveal(const std::filesystem::path& folder) override;

signals:
    /// No file manager has confirmed that it shows `folder`. The folder that contains it was opened instead, provided
    /// that some application on this desktop opens folders; whether that worked is unknown.
    void revealUnconfirmed(const std::filesystem::path& folder);

private:
    void settle(const std::filesystem::path& folder, bool isShown);

    const std::chrono::milliseconds limit_;
    std::set<std::filesystem::path> unanswered_;
};
