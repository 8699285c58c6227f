#include "AmbrelRecoveryApp/FilePanels/FolderWatch.h"

#include <array>
#include <cstdint>
#include <utility>

#include <sys/inotify.h>
#include <unistd.h>

UniqueDescriptor FolderWatch::begin(const std::filesystem::path& folder) {
    constexpr std::uint32_t changes = IN_ATTRIB | IN_CREATE | IN_DELETE | IN_DELETE_SELF | IN_MOVE | IN_ONLYDIR;
    UniqueDescriptor watch(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    const bool isWatched = watch && inotify_add_watch(watch.get(), folder.c_str(), changes) >= 0;
    return isWatched ? std::move(watch) : UniqueDescriptor();
}

void FolderWatch::clear(int watch) {
    std::array<char, 4096> events{};
    while (read(watch, events.data(), events.size()) > 0) {
    }
}
