#include "Text.h"

#include <cerrno>
#include <charconv>
#include <cstddef>
#include <system_error>

#include <unistd.h>

namespace {

constexpr std::string_view digits = "0123456789abcdef";

void appendHexadecimal(std::string& text, char byte) {
    const auto value = static_cast<unsigned char>(byte);
    text += digits[value / 16];
    text += digits[value % 16];
}

} // namespace

bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

std::string readToEnd(int descriptor, std::size_t limit) {
    std::string text;
    std::string buffer(limit, '\0');
    for (;;) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count > 0) {
            text.append(buffer, 0, static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return text;
        }
    }
}

std::string escaped(std::string_view text) {
    std::string line;
    for (const char character : text) {
        if (character >= ' ' && character <= '~' && character != '\\') {
            line += character;
        } else {
            line += "\\x";
            appendHexadecimal(line, character);
        }
    }
    return line;
}

std::string hexadecimal(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        appendHexadecimal(text, byte);
    }
    return text;
}

long number(std::string_view text, long otherwise) {
    long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? value : otherwise;
}
