#pragma once

#include "Common/UniqueDescriptor.h"

#include <string>

/// A private folder in the user's temporary directory (TMPDIR, else /tmp), removed with its contents on destruction.
class TemporaryFolder {
public:
    /// Throws Failure (outputNotWritten).
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }
    /// The open folder.
    int descriptor() const { return descriptor_.get(); }

private:
    std::string path_;
    UniqueDescriptor descriptor_;
};
