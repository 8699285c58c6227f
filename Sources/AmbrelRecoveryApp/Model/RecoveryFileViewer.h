#pragma once

#include <filesystem>

/// The desktop's file viewer. Main thread.
class RecoveryFileViewer {
public:
    RecoveryFileViewer() = default;
    RecoveryFileViewer(const RecoveryFileViewer&) = delete;
    RecoveryFileViewer& operator=(const RecoveryFileViewer&) = delete;
    virtual ~RecoveryFileViewer() = default;

    /// Shows `folder` selected in the folder that holds it; it is not opened itself.
    virtual void reveal(const std::filesystem::path& folder) = 0;
};
