#include "Output/ExportTree.h"

#include "Format/FileName.h"
#include "Output/OutputFailure.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

UniqueDescriptor openSubfolder(int folder, const char* name) {
    UniqueDescriptor opened(::openat(folder, name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!opened) {
        throw OutputFailure::whileWriting();
    }
    return opened;
}

} // namespace

void ExportTree::makeFolder(const FolderPath& path) const {
    UniqueDescriptor folder = openSubfolder(root_, ".");
    for (const std::string& name : path) {
        if (::mkdirat(folder.get(), name.c_str(), 0777) != 0 && errno != EEXIST) {
            throw OutputFailure::whileWriting();
        }
        folder = openSubfolder(folder.get(), name.c_str());
    }
}

UniqueDescriptor ExportTree::createFile(const FolderPath& path, const std::string& name) {
    const UniqueDescriptor folder = openFolder(path);
    std::string key;
    for (const std::string& part : path) {
        key += part + "/";
    }
    key += name;
    for (auto next = nextNumbers_.find(key);; next = nextNumbers_.try_emplace(key, 1).first) {
        if (next != nextNumbers_.end()) {
            ++next->second;
        }
        const std::string candidate = next == nextNumbers_.end() ? name : FileName::numbered(name, next->second);
        UniqueDescriptor file(
            ::openat(folder.get(), candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
        if (file) {
            return file;
        }
        if (errno != EEXIST) {
            throw OutputFailure::whileWriting();
        }
    }
}

UniqueDescriptor ExportTree::openFolder(const FolderPath& path) const {
    UniqueDescriptor folder = openSubfolder(root_, ".");
    for (const std::string& name : path) {
        folder = openSubfolder(folder.get(), name.c_str());
    }
    return folder;
}
