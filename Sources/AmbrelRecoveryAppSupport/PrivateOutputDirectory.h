#pragma once

#include "AmbrelPlatform/UniqueDescriptor.h"

#include <filesystem>
#include <string>

/// A directory of one engine run in the user's temporary directory, which only the user can open. It is removed with
/// everything in it when this object is destroyed. Where the process dies before that, removeAbandoned() of a later one
/// removes it: the living hold a lock on theirs. Not synchronised.
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

    /// Makes an empty file with permissions 0600, whatever the umask, and opens it for writing and reading. Throws
    /// AmbrelRecoveryProcessError::temporaryOutputUnavailable.
    UniqueDescriptor createFile(const char* name) const;

    /// Every byte that a file of createFile() holds when this is called, whatever became of its name; what others add
    /// meanwhile is left out. Throws AmbrelRecoveryProcessError::temporaryOutputUnavailable, also where the memory does
    /// not suffice.
    static std::string contentsOf(const UniqueDescriptor& file);

    /// Removes the directories in the temporary directory that processes of this user left when they died: real
    /// directories of the user's with such a name and permissions 0700, on which nobody holds the lock. Links are not
    /// followed, and what cannot be removed stays. Removes at most 1,000. Any thread; throws std::bad_alloc.
    static void removeAbandoned();

private:
    bool make();

    std::filesystem::path path_;
    /// The directory itself, wherever the engine moves it, with the lock that tells that it is in use.
    UniqueDescriptor descriptor_;
};
