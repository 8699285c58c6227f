#include "SampleBackup/PictureFolder.h"

#include "SampleBackup/SampleError.h"

#include <algorithm>

namespace {

namespace fs = std::filesystem;

PictureFolder::Picture pictureAt(const fs::path& path, const fs::path& top) {
    PictureFolder::Picture picture;
    picture.path = path;
    picture.fileName = path.filename().string();
    for (const fs::path& folder : path.lexically_relative(top).parent_path()) {
        picture.folders.push_back(folder.string());
    }
    return picture;
}

} // namespace

std::vector<PictureFolder::Picture> PictureFolder::scan(const std::string& path) {
    std::vector<Picture> pictures;
    try {
        const fs::path top(path);
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(top)) {
            if (fs::is_regular_file(entry.symlink_status())) {
                pictures.push_back(pictureAt(entry.path(), top));
            }
        }
    } catch (const fs::filesystem_error& error) {
        throw SampleError("The folder of pictures cannot be read: " + error.code().message());
    }
    if (pictures.empty()) {
        throw SampleError("The folder of pictures is empty.");
    }
    std::ranges::sort(pictures, {}, &Picture::path);
    return pictures;
}
