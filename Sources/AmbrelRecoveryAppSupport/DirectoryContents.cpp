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

/// Each level holds two descriptors while the levels below it are emptied.
constexpr int deepestLevel = 100;

struct DirectoryClosing {
    void operator()(DIR* stream) const { closedir(stream); }
};

using DirectoryStream = std::unique_ptr<DIR, DirectoryClosing>;

/// Uses a separate descriptor, so that the caller's keeps its position.
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
    // The stream is local to this function; no other thread reads it.
    while (const dirent* const entry = entries ? readdir(entries.get()) : nullptr) { // NOLINT(concurrency-mt-unsafe)
        const char* const name = entry->d_name;
        if (std::string_view(name) == "." || std::string_view(name) == ".." || unlinkat(directory, name, 0) == 0) {
            continue;
        }
        // If this fails and was needed, the removal below fails as well, which is handled there.
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
