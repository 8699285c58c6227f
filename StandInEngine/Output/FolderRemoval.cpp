#include "Output/FolderRemoval.h"

#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

void removeEntries(int folder) noexcept {
    DIR* const directory = ::fdopendir(folder);
    if (directory == nullptr) {
        ::close(folder);
        return;
    }
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the stream is this function's own
    while (const dirent* entry = ::readdir(directory)) {
        const char* const name = entry->d_name;
        if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) {
            continue;
        }
        if (::unlinkat(::dirfd(directory), name, 0) != 0) {
            FolderRemoval::removeWithContents(::dirfd(directory), name);
        }
    }
    ::closedir(directory);
}

} // namespace

void FolderRemoval::removeWithContents(int parent, const char* name) noexcept {
    const int folder = ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder >= 0) {
        removeEntries(folder);
    }
    ::unlinkat(parent, name, AT_REMOVEDIR);
}
