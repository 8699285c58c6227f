#include "AmbrelRecoveryAppSupport/PrivateOutputDirectory.h"

#include "AmbrelPlatform/RetryInterrupted.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/DirectoryContents.h"
#include "AmbrelRecoveryAppSupport/MadeDirectory.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <uuid/uuid.h>

namespace {

std::filesystem::path temporaryDirectory() {
    // While an operation runs, nothing changes the environment.
    const char* const configured = std::getenv("TMPDIR"); // NOLINT(concurrency-mt-unsafe)
    return configured != nullptr && *configured != '\0' ? configured : "/tmp";
}

std::string randomIdentifier() {
    uuid_t identifier;
    uuid_generate_random(identifier);
    std::array<char, UUID_STR_LEN> text{};
    uuid_unparse_upper(identifier, text.data());
    return text.data();
}

/// Whether `name` is the prefix followed by an identifier in the format of randomIdentifier().
bool isNameOfOutputDirectory(std::string_view name) {
    const std::string_view prefix = PrivateOutputDirectory::namePrefix;
    uuid_t identifier;
    return name.starts_with(prefix) &&
           std::ranges::none_of(name.substr(prefix.size()),
                                [](char character) { return character >= 'a' && character <= 'f'; }) &&
           uuid_parse_range(name.data() + prefix.size(), name.data() + name.size(), identifier) == 0;
}

[[noreturn]] void failUnavailable() {
    throw AmbrelRecoveryProcessError::temporaryOutputUnavailable;
}

/// Reads the file into `contents`, which is shortened if the file is. Returns false on failure.
bool readInto(std::string& contents, int descriptor) {
    std::size_t filled = 0;
    while (filled < contents.size()) {
        // The engine has moved the file offset, at which a plain read() would start.
        const ssize_t count = retryInterrupted([&] {
            return pread(descriptor, contents.data() + filled, contents.size() - filled, static_cast<off_t>(filled));
        });
        if (count < 0) {
            return false;
        }
        if (count == 0) {
            contents.resize(filled);
        }
        filled += static_cast<std::size_t>(count);
    }
    return true;
}

bool isSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Locks the directory to mark it as in use. Returns false if another process already treats it as abandoned, which is
/// possible for a moment after its creation. A failure on a file system without locks is ignored: nobody can claim it
/// there.
bool hold(const std::filesystem::path& path, int directory) {
    if (retryInterrupted([=] { return flock(directory, LOCK_EX | LOCK_NB); }) != 0) {
        return errno != EWOULDBLOCK;
    }
    struct stat held {};
    struct stat named {};
    return fstat(directory, &held) == 0 && lstat(path.c_str(), &named) == 0 && isSameFile(held, named);
}

bool isPrivate(int directory) {
    struct stat status {};
    return fstat(directory, &status) == 0 && status.st_uid == geteuid() && (status.st_mode & ALLPERMS) == S_IRWXU;
}

UniqueDescriptor openDirectory(const std::filesystem::path& path) {
    return aboveStandardStreams(UniqueDescriptor(
        retryInterrupted([&] { return open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); })));
}

/// Returns whether the directory was removed.
bool removeIfAbandoned(const std::filesystem::path& path) {
    const UniqueDescriptor directory = openDirectory(path);
    if (!directory || !isPrivate(directory.get()) || flock(directory.get(), LOCK_EX | LOCK_NB) != 0) {
        return false;
    }
    removeDirectoryContents(directory.get());
    return rmdir(path.c_str()) == 0;
}

} // namespace

PrivateOutputDirectory::PrivateOutputDirectory() {
    constexpr int attempts = 3;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (make()) {
            return;
        }
    }
    failUnavailable();
}

/// Returns false if another process has removed the new directory, or is about to, because it appeared to be abandoned.
bool PrivateOutputDirectory::make() {
    path_ = temporaryDirectory() / (namePrefix + randomIdentifier());
    if (retryInterrupted([this] { return mkdir(path_.c_str(), S_IRWXU); }) != 0) {
        failUnavailable();
    }
    bool taken = true;
    if ((descriptor_ = openMadeDirectory(path_))) {
        if (hold(path_, descriptor_.get())) {
            return true;
        }
    } else {
        taken = errno == ENOENT;
    }
    rmdir(path_.c_str());
    if (!taken) {
        failUnavailable();
    }
    return false;
}

PrivateOutputDirectory::~PrivateOutputDirectory() {
    // The files of an ordinary run are removed without another descriptor, in case the system has run out of them.
    unlinkat(descriptor_.get(), standardOutputName, 0);
    unlinkat(descriptor_.get(), standardErrorName, 0);
    if (rmdir(path_.c_str()) == 0) {
        return;
    }
    removeDirectoryContents(descriptor_.get());
    // The engine may have replaced the directory with a link. Its target is left alone.
    if (rmdir(path_.c_str()) != 0 && errno == ENOTDIR) {
        unlink(path_.c_str());
    }
}

UniqueDescriptor PrivateOutputDirectory::createFile(const char* name) const {
    UniqueDescriptor file = aboveStandardStreams(UniqueDescriptor(retryInterrupted([=, this] {
        return openat(descriptor_.get(), name, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    })));
    if (!file || retryInterrupted([&] { return fchmod(file.get(), S_IRUSR | S_IWUSR); }) != 0) {
        failUnavailable();
    }
    return file;
}

std::string PrivateOutputDirectory::contentsOf(const UniqueDescriptor& file) {
    struct stat status {};
    if (fstat(file.get(), &status) != 0) {
        failUnavailable();
    }
    try {
        // Reads only the current size: a process that the engine left running may write forever.
        std::string contents(static_cast<std::size_t>(status.st_size), '\0');
        if (readInto(contents, file.get())) {
            return contents;
        }
    } catch (const std::bad_alloc&) {
        // Too long for the available memory: reported like any other output that cannot be read.
    } catch (const std::length_error&) {
        // Too long for any string, which some libraries report in this way.
    }
    failUnavailable();
}

void PrivateOutputDirectory::removeAbandoned() {
    constexpr int mostAtOnce = 1000;
    int removed = 0;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(temporaryDirectory(), error), end;
         !error && entry != end && removed < mostAtOnce; entry.increment(error)) {
        if (isNameOfOutputDirectory(entry->path().filename().native()) && removeIfAbandoned(entry->path())) {
            ++removed;
        }
    }
}
