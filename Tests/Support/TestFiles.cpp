#include "Support/TestFiles.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include <sys/stat.h>

void TestFiles::write(const std::filesystem::path& path, std::string_view contents, mode_t permissions) {
    std::filesystem::remove(path);
    std::ofstream file(path, std::ios::binary);
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    file.close();
    if (chmod(path.c_str(), permissions) != 0) {
        throw std::system_error(errno, std::generic_category(), path);
    }
}

std::string TestFiles::read(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::system_error(errno, std::generic_category(), path);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::set<std::string> TestFiles::names(const std::filesystem::path& directory) {
    std::set<std::string> names;
    for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(directory)) {
        names.insert(entry.path().filename());
    }
    return names;
}
