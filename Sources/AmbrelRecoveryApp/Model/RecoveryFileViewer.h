#pragma once

#include <filesystem>

/// The desktop's file viewer. Main thread.
class RecoveryFileViewer {
public:
    RecoveryFileViewer() = default;
    RecoveryFileViewer(const RecoveryFileViewer&) = delete;
    RecoveryFileViewer& operator=(const RecoveryFileViewer&) = delete;
    virtual ~RecoveryFileViewer() = default;

    /// Shows `folder` as selected in its parent folder, without opening it.
    virtual void reveal(const std::filesystem::path& folder) = 0;
};
