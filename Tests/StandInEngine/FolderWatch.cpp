#include "FolderWatch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <system_error>

#include <poll.h>
#include <sys/inotify.h>

FolderWatch::FolderWatch(const std::filesystem::path& folder) : notifications_(::inotify_init1(IN_CLOEXEC)) {
    if (::inotify_add_watch(notifications_.get(), folder.c_str(), IN_CREATE) < 0) {
        throw std::system_error(errno, std::generic_category(), "inotify_add_watch");
    }
}

std::string FolderWatch::waitFor(std::string_view ending) {
    constexpr int oneMinute = 60'000;
    std::array<char, 4096> buffer{};
    for (;;) {
        pollfd waiting = {notifications_.get(), POLLIN, 0};
        if (::poll(&waiting, 1, oneMinute) <= 0) {
            throw std::runtime_error("nothing has appeared in the folder");
        }
        const ssize_t count = ::read(notifications_.get(), buffer.data(), buffer.size());
        for (std::size_t start = 0; start < static_cast<std::size_t>(std::max<ssize_t>(count, 0));) {
            inotify_event event = {};
            std::memcpy(&event, buffer.data() + start, sizeof event);
            const std::string name(buffer.data() + start + sizeof event);
            if (name.ends_with(ending)) {
                return name;
            }
            start += sizeof event + event.len;
        }
    }
}
