#include "AmbrelLocalization/FileContents.h"

#include "AmbrelPlatform/RetryInterrupted.h"
#include "AmbrelPlatform/UniqueDescriptor.h"

#include <utility>

#include <fcntl.h>
#include <unistd.h>

std::optional<FileContents> FileContents::read(const std::filesystem::path& path, std::size_t maximumSize) {
    const UniqueDescriptor file(
        retryInterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); }));
    const std::optional<FileStamp> stamp = FileStamp::ofDescriptor(file.get());
    if (!stamp || stamp->size() > maximumSize) {
        return std::nullopt;
    }
    // One more byte than the file's size, to detect a file that grows while it is read without reading all of it.
    std::string bytes(stamp->size() + 1, '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        const ssize_t count =
            retryInterrupted([&] { return ::read(file.get(), bytes.data() + length, bytes.size() - length); });
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
