#include "Engine.h"
#include "Misbehavior.h"
#include "Text.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void print(const std::string& line) {
    writeAll(STDOUT_FILENO, line + "\n");
}

std::string linkTarget(const std::string& path) {
    std::string target(PATH_MAX, '\0');
    const ssize_t length = readlink(path.c_str(), target.data(), target.size());
    target.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return target;
}

std::string fileContents(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::string contents = readToEnd(file);
    close(file);
    return contents;
}

std::string octal(mode_t mode) {
    std::string digits;
    for (int shift = 9; shift >= 0; shift -= 3) {
        digits += static_cast<char>('0' + ((mode >> shift) & 7U));
    }
    return digits;
}

std::vector<std::string> names(const std::string& path) {
    std::vector<std::string> found;
    DIR* const directory = opendir(path.c_str());
    while (const dirent* const entry = directory != nullptr ? readdir(directory) : nullptr) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") {
            found.push_back(name);
        }
    }
    if (directory != nullptr) {
        closedir(directory);
    }
    std::sort(found.begin(), found.end());
    return found;
}

std::string accessMode(int descriptor) {
    const int mode = fcntl(descriptor, F_GETFL) & O_ACCMODE;
    return mode == O_RDONLY ? "r" : mode == O_WRONLY ? "w" : "rw";
}

int printArguments(Engine& engine) {
    for (const std::string& argument : engine.arguments()) {
        print("argument " + escaped(argument));
    }
    return 0;
}

int printProgramName(Engine&) {
    const std::string commandLine = fileContents("/proc/self/cmdline");
    print("program " + escaped(commandLine.substr(0, commandLine.find('\0'))));
    return 0;
}

int printEnvironment(Engine&) {
    for (char** entry = environ; *entry != nullptr; ++entry) {
        print("environment " + escaped(*entry));
    }
    return 0;
}

int printDescriptors(Engine& engine) {
    std::vector<int> open;
    DIR* const directory = opendir("/proc/self/fd");
    while (const dirent* const entry = directory != nullptr ? readdir(directory) : nullptr) {
        const int descriptor = static_cast<int>(number(entry->d_name, -1));
        if (descriptor >= 0 && descriptor != dirfd(directory) && descriptor != engine.logDescriptor()) {
            open.push_back(descriptor);
        }
    }
    if (directory != nullptr) {
        closedir(directory);
    }
    std::sort(open.begin(), open.end());
    for (const int descriptor : open) {
        const std::string name = std::to_string(descriptor);
        print("descriptor " + name + " " + accessMode(descriptor) + " " + escaped(linkTarget("/proc/self/fd/" + name)));
    }
    return 0;
}

/// The lines of /proc/self/status on blocked, ignored, caught and pending signals.
int printSignals(Engine&) {
    const std::string status = fileContents("/proc/self/status");
    for (const std::string name : {"SigPnd", "ShdPnd", "SigBlk", "SigIgn", "SigCgt"}) {
        const std::size_t start = status.find(name + ":");
        print(status.substr(start, status.find('\n', start) - start));
    }
    return 0;
}

int printWorkingDirectory(Engine&) {
    print("directory " + escaped(linkTarget("/proc/self/cwd")));
    return 0;
}

/// Where the outputs go, with permissions as this process sees them.
int printOutputFiles(Engine&) {
    const std::string outputPath = linkTarget("/proc/self/fd/1");
    const std::string directory = outputPath.substr(0, outputPath.rfind('/'));
    struct stat status {};
    stat(directory.c_str(), &status);
    print("directory " + octal(status.st_mode) + " " + escaped(directory));
    for (const std::string& name : names(directory)) {
        lstat((directory + "/" + name).c_str(), &status);
        print("entry " + octal(status.st_mode) + " " + name);
    }
    const mode_t mask = umask(0);
    umask(mask);
    print("umask " + octal(mask));
    return 0;
}

int printEverything(Engine& engine) {
    printProgramName(engine);
    printArguments(engine);
    printWorkingDirectory(engine);
    printDescriptors(engine);
    printSignals(engine);
    printOutputFiles(engine);
    print("input " + std::to_string(engine.input().size()) + " " + hexadecimal(engine.input()));
    return printEnvironment(engine);
}

} // namespace

std::vector<Misbehavior> reportingMisbehaviors() {
    return {
        {"print-arguments", "prints its arguments, one a line", printArguments},
        {"print-program-name", "prints the name that it was started under", printProgramName},
        {"print-environment", "prints its environment, one variable a line", printEnvironment},
        {"print-descriptors", "prints its open descriptors: number, access mode, target", printDescriptors},
        {"print-signals", "prints which signals are pending, blocked, ignored and caught", printSignals},
        {"print-working-directory", "prints its working directory", printWorkingDirectory},
        {"print-output-files", "prints the directory of its outputs, with permissions, and the umask",
         printOutputFiles},
        {"print-everything", "prints all of this and its standard input", printEverything},
    };
}
