#include "AmbrelLocalization/FileContents.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

class OpenFile {
public:
    explicit OpenFile(const std::filesystem::path& path)
        : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
    }

    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

} // namespace

std::optional<FileContents> FileContents::read(const std::filesystem::path& path, std::size_t maximumSize) {
    const OpenFile file(path);
    const std::optional<FileStamp> stamp = FileStamp::ofDescriptor(file.descriptor());
    if (!stamp || stamp->size() > maximumSize) {
        return std::nullopt;
    }
    // One byte more than the file had: a file that grows meanwhile is then read as far as this and no further.
    std::string bytes(stamp->size() + 1, '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        const ssize_t count = ::read(file.descriptor(), bytes.data() + length, bytes.size() - length);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        length += static_cast<std::size_t>(count);
    }
    bytes.resize(length);
    return FileContents{*stamp, std::move(bytes)};
}
