#include "FolderDigest.h"

#include "Support/TestFiles.h"

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

std::string timeText(const timespec& time) {
    return std::to_string(time.tv_sec) + "." + std::to_string(time.tv_nsec);
}

std::string describe(const fs::path& path) {
    struct stat status = {};
    if (::lstat(path.c_str(), &status) != 0) {
        return "gone";
    }
    std::string text = std::to_string(status.st_mode) + " " + std::to_string(status.st_uid) + ":" +
                       std::to_string(status.st_gid) + " " + std::to_string(status.st_ino) + " " +
                       timeText(status.st_mtim) + " " + timeText(status.st_ctim);
    if (S_ISLNK(status.st_mode)) {
        text += " -> " + fs::read_symlink(path).string();
    } else if (S_ISREG(status.st_mode)) {
        constexpr off_t wholeContent = 1 << 20;
        text += " " + std::to_string(status.st_size);
        text += status.st_size <= wholeContent ? " " + TestFiles::read(path) : "";
    }
    return text;
}

} // namespace

std::map<std::string, std::string> FolderDigest::of(const fs::path& folder) {
    std::map<std::string, std::string> digest = {{".", describe(folder)}};
    for (const fs::directory_entry& entry :
         fs::recursive_directory_iterator(folder, fs::directory_options::skip_permission_denied)) {
        digest[entry.path().lexically_relative(folder).string()] = describe(entry.path());
    }
    return digest;
}

std::map<std::string, std::string> FolderDigest::contents(const fs::path& folder) {
    std::map<std::string, std::string> contents;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            contents[entry.path().lexically_relative(folder).string()] = TestFiles::read(entry.path());
        }
    }
    return contents;
}
