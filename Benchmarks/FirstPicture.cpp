// Starts a program on an otherwise empty X display and measures when its first complete picture appears:
//
//
//     FirstPicture [--picture FILE.ppm] PROGRAM [ARGUMENT...]
//
// A picture is complete when it first equals the one on the display after nothing has been drawn for a while. Prints
// one JSON object: wall and processor time from the start of the program to that picture, and the program's
// proportional and private memory once it is idle. Reading the memory requires root if the program hides it.

#include "ScreenWatch.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int restMilliseconds = 1500;
/// A program that never becomes idle (for example with a blinking cursor) is watched for this long.
constexpr std::chrono::seconds longestWatch(15);

struct Picture {
    std::size_t hash = 0;
    double wallMilliseconds = 0;
    double processorMilliseconds = 0;
};

class Program {
public:
    explicit Program(char** arguments) {
        start_ = Clock::now();
        if (::posix_spawnp(&process_, arguments[0], nullptr, nullptr, arguments, environ) != 0) {
            throw std::runtime_error("the program could not be started");
        }
        if (::clock_getcpuclockid(process_, &processorClock_) != 0) {
            throw std::runtime_error("the program's processor time cannot be read");
        }
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        ::kill(process_, SIGTERM);
        ::waitpid(process_, nullptr, 0);
    }

    double wallMilliseconds() const { return std::chrono::duration<double, std::milli>(Clock::now() - start_).count(); }

    double processorMilliseconds() const {
        timespec time = {};
        ::clock_gettime(processorClock_, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }

    /// A field of the program's memory summary in KiB, or -1 if it cannot be read.
    long memory(std::string_view field) const {
        std::ifstream summary("/proc/" + std::to_string(process_) + "/smaps_rollup");
        std::string name;
        while (summary >> name) {
            long value = -1;
            if (name == field && summary >> value) {
                return value;
            }
        }
        return -1;
    }

private:
    Clock::time_point start_;
    pid_t process_ = 0;
    clockid_t processorClock_ = 0;
};

std::size_t hashOf(std::span<const std::byte> picture) {
    return std::hash<std::string_view>{}({reinterpret_cast<const char*>(picture.data()), picture.size()});
}

std::vector<Picture> watch(ScreenWatch& screen, const Program& program) {
    const Clock::time_point end = Clock::now() + longestWatch;
    std::vector<Picture> pictures;
    // Until the first drawing, only longestWatch bounds the wait.
    while (Clock::now() < end) {
        if (screen.waitForDrawing(restMilliseconds)) {
            const std::size_t hash = hashOf(screen.takePicture());
            pictures.push_back({hash, program.wallMilliseconds(), program.processorMilliseconds()});
        } else if (!pictures.empty()) {
            break;
        }
    }
    return pictures;
}

Picture firstComplete(const std::vector<Picture>& pictures, std::size_t emptyHash) {
    for (const Picture& picture : pictures) {
        if (picture.hash == pictures.back().hash && picture.hash != emptyHash) {
            return picture;
        }
    }
    throw std::runtime_error("the program showed nothing");
}

void write(ScreenWatch& screen, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    file << "P6\n" << screen.width() << ' ' << screen.height() << "\n255\n";
    const auto picture = screen.takePicture();
    for (std::size_t place = 0; place < picture.size(); place += 4) {
        for (const std::size_t channel : {2U, 1U, 0U}) {
            file.put(static_cast<char>(picture[place + channel]));
        }
    }
}

void measure(ScreenWatch& screen, char** arguments, const std::string& picturePath) {
    const std::size_t emptyHash = hashOf(screen.takePicture());
    {
        const Program program(arguments);
        const std::vector<Picture> pictures = watch(screen, program);
        const Picture first = firstComplete(pictures, emptyHash);
        std::printf("{\"wallMilliseconds\": %.2f, \"processorMilliseconds\": %.2f, \"pictures\": %zu, "
                    "\"proportionalKiB\": %ld, \"privateDirtyKiB\": %ld}\n",
                    first.wallMilliseconds, first.processorMilliseconds, pictures.size(), program.memory("Pss:"),
                    program.memory("Private_Dirty:"));
        if (!picturePath.empty()) {
            write(screen, picturePath);
        }
    }
    // The display removes a program's windows some time after the program has ended.
    while (hashOf(screen.takePicture()) != emptyHash && screen.waitForDrawing(restMilliseconds)) {
    }
}

} // namespace

int main(int argumentCount, char** arguments) {
    const bool hasPicture = argumentCount > 2 && std::string_view(arguments[1]) == "--picture";
    char** const program = arguments + (hasPicture ? 3 : 1);
    if (*program == nullptr) {
        std::cerr << "Usage: FirstPicture [--picture FILE.ppm] PROGRAM [ARGUMENT...]\n";
        return 2;
    }
    try {
        ScreenWatch screen;
        measure(screen, program, hasPicture ? arguments[2] : "");
    } catch (const std::exception& error) {
        std::cerr << "FirstPicture: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
