#include "Support/OpenDescriptors.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <string_view>
#include <system_error>

#include <dirent.h>
#include <unistd.h>

std::map<int, std::string> openDescriptors() {
    DIR* const directory = opendir("/proc/self/fd");
    if (directory == nullptr) {
        throw std::system_error(errno, std::generic_category(), "/proc/self/fd");
    }
    std::map<int, std::string> descriptors;
    while (const dirent* const entry = readdir(directory)) {
        const std::string_view name = entry->d_name;
        int number = -1;
        std::from_chars(name.data(), name.data() + name.size(), number);
        if (number < 0 || number == dirfd(directory)) {
            continue;
        }
        std::array<char, 4096> target;
        const ssize_t length = readlinkat(dirfd(directory), entry->d_name, target.data(), target.size());
        descriptors[number] = std::string(target.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    }
    closedir(directory);
    return descriptors;
}
