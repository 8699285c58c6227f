#include "AmbrelRecoveryAppSupport/DirectoryContents.h"

#include "AmbrelPlatform/RetryInterrupted.h"
#include "AmbrelPlatform/UniqueDescriptor.h"

#include <memory>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Each level holds two descriptors while those below it are emptied.
constexpr int deepestLevel = 100;

struct DirectoryClosing {
    void operator()(DIR* stream) const { closedir(stream); }
};

using DirectoryStream = std::unique_ptr<DIR, DirectoryClosing>;

/// A stream of its own, so that the caller's descriptor keeps its place.
DirectoryStream entriesOf(int directory) {
    const int descriptor = retryInterrupted([=] { return openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    DirectoryStream stream(descriptor >= 0 ? fdopendir(descriptor) : nullptr);
    if (!stream) {
        const UniqueDescriptor closing(descriptor);
    }
    return stream;
}

void removeContents(int directory, int level) {
    fchmod(directory, S_IRWXU);
    const DirectoryStream entries = entriesOf(directory);
    // The stream is this function's own; no other thread reads it.
    while (const dirent* const entry = entries ? readdir(entries.get()) : nullptr) { // NOLINT(concurrency-mt-unsafe)
        const char* const name = entry->d_name;
        if (std::string_view(name) == "." || std::string_view(name) == ".." || unlinkat(directory, name, 0) == 0) {
            continue;
        }
        // Where this fails and was needed, the removal fails as well, and that is what counts.
        [[maybe_unused]] const int failure = fchmodat(directory, name, S_IRWXU, AT_SYMLINK_NOFOLLOW);
        const UniqueDescriptor folder(
            retryInterrupted([=] { return openat(directory, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
        if (folder && level < deepestLevel) {
            removeContents(folder.get(), level + 1);
        }
        unlinkat(directory, name, AT_REMOVEDIR);
    }
}

} // namespace

void removeDirectoryContents(int directory) noexcept {
    removeContents(directory, 1);
}
