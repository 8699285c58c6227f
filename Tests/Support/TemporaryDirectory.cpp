#include "Support/TemporaryDirectory.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

fs::path make() {
    std::string pattern = (fs::canonical(fs::temp_directory_path()) / "ambrel-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr || chmod(pattern.c_str(), 0755) != 0) {
        throw std::system_error(errno, std::generic_category(), "a temporary directory");
    }
    return pattern;
}

void makeRemovable(const fs::path& directory) {
    std::error_code ignored;
    fs::permissions(directory, fs::perms::owner_all, ignored);
    for (const fs::directory_entry& entry : fs::directory_iterator(directory, ignored)) {
        if (entry.is_directory(ignored) && !entry.is_symlink(ignored)) {
            makeRemovable(entry.path());
        }
    }
}

} // namespace

TemporaryDirectory::TemporaryDirectory() : path_(make()) {}

TemporaryDirectory::~TemporaryDirectory() {
    makeRemovable(path_);
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}
