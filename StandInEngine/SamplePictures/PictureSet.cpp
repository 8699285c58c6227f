#include "SamplePictures/PictureSet.h"

#include "SamplePictures/JpegFile.h"
#include "SamplePictures/Landscape.h"
#include "SamplePictures/PngFile.h"

#include <array>
#include <ctime>
#include <fstream>
#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

struct Picture {
    const char* path;
    unsigned width;
    unsigned height;
};

constexpr std::array pictures = {
    Picture{"IMG_0001.jpg", 800, 600},
    Picture{"IMG_0002.jpg", 3600, 2400},
    Picture{"IMG_0003.png", 640, 480},
    Picture{"IMG_0004.jpg", 900, 600},
    Picture{"IMG_0004.png", 900, 600},
    Picture{"IMG_0005.jpg", 600, 800},
    Picture{"IMG_0006.png", 1500, 1100},
    Picture{"Screenshot 1.png", 320, 640},
    Picture{"Screenshot 2.png", 320, 640},
    Picture{"Größe & Würde (Kopie).jpg", 640, 480},
    Picture{"Ein Bild.mit Punkten.im Namen.png", 400, 300},
    Picture{"Émilie à la plage.jpg", 1024, 768},
    Picture{"Garden/Spring.jpg", 800, 533},
    Picture{"Garden/Summer.jpg", 3400, 2300},
    Picture{"Garden/Autumn.jpg", 800, 533},
    Picture{"Garden/Winter.jpg", 800, 533},
    Picture{"Garden/Plan.png", 512, 512},
    Picture{"Trips/Map.png", 700, 700},
    Picture{"Trips/Norway 2023/IMG_0001.jpg", 1200, 800},
    Picture{"Trips/Norway 2023/IMG_0002.jpg", 1200, 800},
    Picture{"Trips/Norway 2023/IMG_0003.jpg", 3300, 2200},
    Picture{"Trips/Norway 2023/Lofoten – Å.jpg", 1000, 667},
    Picture{"Trips/Norway 2023/Tromsø.png", 600, 400},
    Picture{"Trips/Kraków/Sukiennice.jpg", 640, 960},
    Picture{"Trips/Kraków/Żółty dom.jpg", 960, 640},
    Picture{"Trips/Kraków/Zamek o świcie.png", 1400, 1000},
    Picture{"Trips/京都/桜.jpg", 1000, 750},
    Picture{"Trips/京都/金閣寺 の 池.png", 800, 600},
    Picture{"Trips/京都/竹林.jpg", 750, 1000},
    Picture{"Family/Birthday 😀.jpg", 640, 480},
    Picture{"Family/Grandma's  kitchen.jpg", 640, 480},
    Picture{"Family/Дедушка.jpg", 640, 480},
    Picture{"Family/عائلة.png", 480, 360},
    Picture{"Family/100% \"us\".jpg", 480, 360},
    Picture{"Family/small.png", 1, 1},
    Picture{"Family/Panorama.jpg", 3600, 700},
};

void writeFile(const std::filesystem::path& path, const std::vector<std::uint8_t>& content) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) {
        throw std::runtime_error("a picture cannot be written");
    }
}

// Each picture was taken some days after the previous one, at a time with a fraction of a second.
void setTimeTaken(const std::filesystem::path& path, std::size_t index) {
    constexpr std::time_t firstTaken = 1'655'208'000;
    constexpr std::time_t interval = 12 * 86'400 + 5'407;
    const auto number = static_cast<std::time_t>(index);
    const timespec taken = {firstTaken + number * interval, 123'456'789};
    const std::array times = {taken, taken};
    if (::utimensat(AT_FDCWD, path.c_str(), times.data(), AT_SYMLINK_NOFOLLOW) != 0) {
        throw std::runtime_error("the time of a picture cannot be set");
    }
}

} // namespace

PictureSet::Summary PictureSet::drawInto(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    if (!std::filesystem::is_empty(folder)) {
        throw std::runtime_error("the folder is not empty");
    }
    Summary summary;
    for (const Picture& picture : pictures) {
        const std::filesystem::path path = folder / picture.path;
        std::filesystem::create_directories(path.parent_path());
        const Bitmap bitmap =
            Landscape::draw(picture.width, picture.height, static_cast<std::uint32_t>(summary.fileCount));
        const auto content = path.extension() == ".png" ? PngFile::encode(bitmap) : JpegFile::encode(bitmap);
        writeFile(path, content);
        setTimeTaken(path, summary.fileCount);
        ++summary.fileCount;
        summary.byteCount += content.size();
    }
    return summary;
}
