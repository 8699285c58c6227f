#pragma once

#include "AmbrelRecoveryApp/Model/RecoveryFileViewer.h"

/// Shows files in the desktop's file manager: through the file manager's own service on the session bus where there is
/// one, which can select an item, and otherwise by opening the folder that holds it. Never waits for an answer.
class DesktopFileViewer final : public RecoveryFileViewer {
public:
    void reveal(const std::filesystem::path& folder) override;
};
