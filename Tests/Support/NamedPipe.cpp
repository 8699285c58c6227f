#include "Support/NamedPipe.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int minuteInMilliseconds = 60000;

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

int makeAndOpen(const std::filesystem::path& path) {
    if (mkfifo(path.c_str(), 0666) != 0) {
        fail("mkfifo");
    }
    const int descriptor = open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (descriptor < 0) {
        fail("open");
    }
    return descriptor;
}

} // namespace

NamedPipe::NamedPipe(std::filesystem::path path) : path_(std::move(path)), descriptor_(makeAndOpen(path_)) {}

NamedPipe::~NamedPipe() {
    close(descriptor_);
    unlink(path_.c_str());
}

std::string NamedPipe::readLine() {
    for (;;) {
        if (const std::size_t end = unread_.find('\n'); end != std::string::npos) {
            std::string line = unread_.substr(0, end);
            unread_.erase(0, end + 1);
            return line;
        }
        pollfd ready{descriptor_, POLLIN, 0};
        const int count = poll(&ready, 1, minuteInMilliseconds);
        if (count == 0) {
            throw std::runtime_error("nothing came through " + path_.string());
        }
        std::array<char, 4096> buffer;
        const ssize_t length = count > 0 ? read(descriptor_, buffer.data(), buffer.size()) : -1;
        if (length > 0) {
            unread_.append(buffer.data(), static_cast<std::size_t>(length));
        } else if (errno != EINTR) {
            fail("read");
        }
    }
}

std::string NamedPipe::readUntil(std::string_view beginning) {
    for (;;) {
        std::string line = readLine();
        if (line.starts_with(beginning)) {
            return line;
        }
    }
}

void NamedPipe::write(std::string_view text) {
    if (::write(descriptor_, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
        fail("write");
    }
}
