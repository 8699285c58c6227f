#include "SamplePictures/PictureSet.h"

#include <exception>
#include <iostream>
#include <string_view>

namespace {

constexpr std::string_view usage = "Usage: draw-sample-pictures FOLDER\n"
                                   "Draws sample pictures into a new or empty folder, the same ones every time.\n";

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2 || std::string_view(arguments[1]).starts_with("--")) {
        const bool isHelp = argumentCount == 2 && std::string_view(arguments[1]) == "--help";
        (isHelp ? std::cout : std::cerr) << usage;
        return isHelp ? 0 : 64;
    }
    try {
        const PictureSet::Summary summary = PictureSet::drawInto(arguments[1]);
        std::cout << "pictures: " << summary.fileCount << "\nbytes: " << summary.byteCount << std::endl;
        return std::cout ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "draw-sample-pictures: " << error.what() << "\n";
        return 1;
    }
}
