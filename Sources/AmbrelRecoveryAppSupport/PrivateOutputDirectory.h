#pragma once

#include "AmbrelRecoveryAppSupport/UniqueDescriptor.h"

#include <filesystem>
#include <string>

/// A directory of one engine run in the user's temporary directory, which only the user can open. It is removed with
/// everything in it when this object is destroyed. Not synchronised.
class PrivateOutputDirectory {
public:
    /// The names of the directories begin with this, followed by a random identifier.
    static constexpr const char* namePrefix = "com.ambrel.recovery-output.";

    /// The names of the files that a run makes in it.
    static constexpr const char* standardOutputName = "stdout";
    static constexpr const char* standardErrorName = "stderr";

    /// Makes the directory with permissions 0700, whatever the umask. Throws
    /// AmbrelRecoveryProcessError::temporaryOutputUnavailable.
    PrivateOutputDirectory();

    PrivateOutputDirectory(const PrivateOutputDirectory&) = delete;
    PrivateOutputDirectory& operator=(const PrivateOutputDirectory&) = delete;
    ~PrivateOutputDirectory();

    const std::filesystem::path& path() const { return path_; }

    /// Makes an empty file with permissions 0600, whatever the umask, and opens it for writing. Throws
    /// AmbrelRecoveryProcessError::temporaryOutputUnavailable.
    UniqueDescriptor createFile(const char* name) const;

    /// Every byte of the file. Throws AmbrelRecoveryProcessError::temporaryOutputUnavailable, also for a file of more
    /// than 1 GiB: the output of an engine that has gone wrong must not take all memory.
    std::string readFile(const char* name) const;

private:
    std::filesystem::path path_;
};
