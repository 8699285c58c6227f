#include "SelfTest/TemporaryFolder.h"

#include "Common/Failure.h"
#include "Output/FolderRemoval.h"

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

TemporaryFolder::TemporaryFolder() {
    const char* const directory = std::getenv("TMPDIR"); // NOLINT(concurrency-mt-unsafe): one thread
    path_ = directory != nullptr && *directory != '\0' ? directory : "/tmp";
    path_ += "/ambrel-recovery-self-test.XXXXXX";
    if (::mkdtemp(path_.data()) == nullptr) {
        throw Failure(FailureReason::outputNotWritten, "the temporary folder cannot be made");
    }
    descriptor_ = UniqueDescriptor(::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!descriptor_) {
        ::rmdir(path_.c_str());
        throw Failure(FailureReason::outputNotWritten, "the temporary folder cannot be used");
    }
}

TemporaryFolder::~TemporaryFolder() {
    FolderRemoval::removeWithContents(AT_FDCWD, path_.c_str());
}
