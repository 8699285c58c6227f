#include "AmbrelRecoveryAppSupport/PrivateOutputDirectory.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <new>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <uuid/uuid.h>

namespace {

std::filesystem::path temporaryDirectory() {
    const char* const configured = std::getenv("TMPDIR");
    return configured != nullptr && *configured != '\0' ? configured : "/tmp";
}

std::string randomIdentifier() {
    uuid_t identifier;
    uuid_generate_random(identifier);
    std::array<char, UUID_STR_LEN> text{};
    uuid_unparse_upper(identifier, text.data());
    return text.data();
}

[[noreturn]] void failUnavailable() {
    throw AmbrelRecoveryProcessError::temporaryOutputUnavailable;
}

/// More than any document or message of an engine, and little enough to be held in memory.
constexpr off_t largestOutput = off_t{1} << 30;

bool isTooLarge(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) != 0 || status.st_size > largestOutput;
}

/// Appends what can be read until the end of the file. False on a failure.
bool readToEnd(int descriptor, std::string& contents) {
    std::array<char, 65536> buffer;
    for (;;) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count == 0) {
            return true;
        }
        if (count > 0) {
            contents.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
}

/// Removes also what an engine made and locked away from the user.
void removeWithEverythingIn(const std::filesystem::path& directory) {
    std::error_code ignored;
    chmod(directory.c_str(), 0700);
    for (std::filesystem::recursive_directory_iterator entry(directory, ignored), end; !ignored && entry != end;
         entry.increment(ignored)) {
        if (entry->symlink_status(ignored).type() == std::filesystem::file_type::directory) {
            chmod(entry->path().c_str(), 0700);
        }
    }
    std::filesystem::remove_all(directory, ignored);
}

} // namespace

PrivateOutputDirectory::PrivateOutputDirectory() : path_(temporaryDirectory() / (namePrefix + randomIdentifier())) {
    if (mkdir(path_.c_str(), 0700) != 0) {
        failUnavailable();
    }
    // The umask may have taken away permissions that the user needs.
    if (chmod(path_.c_str(), 0700) != 0) {
        rmdir(path_.c_str());
        failUnavailable();
    }
}

PrivateOutputDirectory::~PrivateOutputDirectory() {
    // An engine may have put a link in the directory's place; where that leads is nothing of ours.
    std::error_code error;
    if (std::filesystem::symlink_status(path_, error).type() != std::filesystem::file_type::directory) {
        unlink(path_.c_str());
        return;
    }
    // What an ordinary run leaves is removed without a descriptor, which may be what the system lacks.
    unlink((path_ / standardOutputName).c_str());
    unlink((path_ / standardErrorName).c_str());
    if (rmdir(path_.c_str()) != 0) {
        removeWithEverythingIn(path_);
    }
}

UniqueDescriptor PrivateOutputDirectory::createFile(const char* name) const {
    UniqueDescriptor file = aboveStandardStreams(UniqueDescriptor(
        open((path_ / name).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR)));
    if (!file || fchmod(file.get(), S_IRUSR | S_IWUSR) != 0) {
        failUnavailable();
    }
    return file;
}

std::string PrivateOutputDirectory::readFile(const char* name) const {
    const UniqueDescriptor file(open((path_ / name).c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
    if (!file || isTooLarge(file.get())) {
        failUnavailable();
    }
    std::string contents;
    try {
        if (!readToEnd(file.get(), contents)) {
            failUnavailable();
        }
    } catch (const std::bad_alloc&) {
        failUnavailable();
    }
    return contents;
}
