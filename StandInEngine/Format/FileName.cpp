#include "Format/FileName.h"

namespace {

constexpr std::size_t maximumByteCount = 255;

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace

bool FileName::isSafe(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && name.size() <= maximumByteCount &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

std::string FileName::numbered(std::string_view name, std::size_t number) {
    const std::size_t dot = name.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot > 0 && name.size() - dot <= 16;
    const std::string_view extension = hasExtension ? name.substr(dot) : std::string_view();
    std::string_view stem = name.substr(0, name.size() - extension.size());
    const std::string suffix = " (" + std::to_string(number) + ")";
    const std::size_t room = maximumByteCount - suffix.size() - extension.size();
    if (stem.size() > room) {
        std::size_t end = room;
        while (end > 0 && continuesCharacter(stem[end])) {
            --end;
        }
        stem = stem.substr(0, end);
    }
    std::string result(stem);
    result += suffix;
    result += extension;
    return result;
}
