#include "ImportedFunctions.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace {

std::string outputOf(const std::string& command) {
    std::FILE* const stream = popen(command.c_str(), "r");
    std::string output;
    std::array<char, 4096> buffer{};
    while (stream != nullptr) {
        const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), stream);
        if (count == 0) {
            break;
        }
        output.append(buffer.data(), count);
    }
    if (stream == nullptr || pclose(stream) != 0) {
        throw std::runtime_error("“" + command + "” failed");
    }
    return output;
}

bool isOfCompilerOrLanguage(std::string_view symbol) {
    constexpr std::array<std::string_view, 12> beginnings = {
        "_Z",     "_GLOBAL_OFFSET_TABLE_", "_Unwind_", "__asan_",        "__assert_fail", "__cxa_",
        "__dso_", "__errno_location",      "__gxx_",   "__libc_single_", "__sanitizer_",  "__stack_chk_"};
    return std::ranges::any_of(beginnings, [=](std::string_view beginning) { return symbol.starts_with(beginning); }) ||
           symbol.starts_with("__ubsan_") || symbol.starts_with("__tsan_");
}

/// Without what marks the second name of a function, or its variant that checks sizes.
std::string plainName(std::string_view symbol) {
    if (symbol.starts_with("__")) {
        symbol.remove_prefix(2);
        for (const std::string_view ending : {"_chk", "_2"}) {
            if (symbol.ends_with(ending)) {
                symbol.remove_suffix(ending.size());
            }
        }
    }
    return std::string(symbol);
}

} // namespace

std::set<std::string> importedFunctions(const std::filesystem::path& library) {
    std::istringstream lines(outputOf("nm --undefined-only --format=just-symbols '" + library.string() + "'"));
    std::set<std::string> functions;
    for (std::string line; std::getline(lines, line);) {
        const bool isMember = line.ends_with(':');
        if (!line.empty() && !isMember && !isOfCompilerOrLanguage(line)) {
            functions.insert(plainName(line));
        }
    }
    if (functions.empty()) {
        throw std::runtime_error("a library without imports: " + library.string());
    }
    return functions;
}
