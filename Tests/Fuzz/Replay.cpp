// Runs a fuzz target on the files of its corpus and on those that once failed, as an ordinary test of any build.

#include "Fuzz/Fuzzing.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <vector>

namespace fs = std::filesystem;

extern "C" [[gnu::weak]] int LLVMFuzzerInitialize(int* argumentCount, char*** arguments);

namespace {

std::vector<fs::path> filesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

void replay(const fs::path& file) {
    // Named before it is run: the one who reads of a finding then knows which input it was.
    std::fprintf(stderr, "%s\n", file.filename().c_str());
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    Fuzzing::expect(!stream.bad() && bytes.size() == fs::file_size(file), "a file of the corpus can be read");
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

bool isFinished = false;

/// A target, or what it calls, that ends the process has not tried the other inputs, whatever status it ends with.
void failUnlessFinished() {
    if (!isFinished) {
        std::fputs("Ended before its last input\n", stderr);
        std::_Exit(1);
    }
}

} // namespace

int main(int argumentCount, char** arguments) {
    try {
        if (LLVMFuzzerInitialize != nullptr) {
            LLVMFuzzerInitialize(&argumentCount, &arguments);
        }
        if (argumentCount < 2) {
            std::fprintf(stderr, "Usage: %s FOLDER...\n", arguments[0]);
            return 2;
        }
        std::atexit(failUnlessFinished);
        for (const char* const folder : std::span(arguments, static_cast<std::size_t>(argumentCount)).subspan(1)) {
            const std::vector<fs::path> files = filesIn(folder);
            Fuzzing::expect(!files.empty(), "a folder holds inputs");
            std::ranges::for_each(files, replay);
            std::printf("%zu inputs in %s\n", files.size(), folder);
        }
        isFinished = true;
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
