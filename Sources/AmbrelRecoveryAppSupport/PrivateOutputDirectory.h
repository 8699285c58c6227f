#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <filesystem>
#include <string>

/// A directory for one engine run in the user's temporary directory, accessible only to the user. It is removed with
/// its contents when this object is destroyed. If the process dies first, removeAbandoned() of a later process removes
/// it: processes hold a lock on their directories while they run. Not synchronized.
class PrivateOutputDirectory {
public:
    /// Directory names consist of this prefix and a random identifier.
    static constexpr const char* namePrefix = "com.ambrel.recovery-output.";

    /// The names of the files that a run creates in it.
    static constexpr const char* standardOutputName = "stdout";
    static constexpr const char* standardErrorName = "stderr";

    /// Creates the directory with permissions 0700, regardless of the umask. Throws
    /// AmbrelRecoveryProcessError::temporaryOutputUnavailable.
    PrivateOutputDirectory();

    PrivateOutputDirectory(const PrivateOutputDirectory&) = delete;
    PrivateOutputDirectory& operator=(const PrivateOutputDirectory&) = delete;
    ~PrivateOutputDirectory();

    const std::filesystem::path& path() const { return path_; }

    /// Creates an empty file with permissions 0600, regardless of the umask, and opens it for reading and writing.
    /// Throws AmbrelRecoveryProcessError::temporaryOutputUnavailable.
    UniqueDescriptor createFile(const char* name) const;

    /// Returns all bytes that a file from createFile() holds at the time of the call, even if it was renamed or
    /// removed. Bytes that are added during the call are left out. Throws
    /// AmbrelRecoveryProcessError::temporaryOutputUnavailable, also if there is not enough memory.
    static std::string contentsOf(const UniqueDescriptor& file);

    /// Removes the directories in the temporary directory that this user's processes left when they died: real
    /// directories owned by the user with such a name and permissions 0700, on which nobody holds a lock. Does not
    /// follow links, and leaves what cannot be removed. Removes at most 1,000 directories. Any thread; throws
    /// std::bad_alloc.
    static void removeAbandoned();

private:
    bool make();

    std::filesystem::path path_;
    /// The directory itself, even if the engine moves it. Holds the lock that marks it as in use.
    UniqueDescriptor descriptor_;
};
