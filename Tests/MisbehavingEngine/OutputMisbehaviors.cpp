#include "Engine.h"
#include "Misbehavior.h"
#include "Text.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string outputPath(int stream) {
    std::string path(PATH_MAX, '\0');
    const ssize_t length = readlink(("/proc/self/fd/" + std::to_string(stream)).c_str(), path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return path;
}

std::string outputDirectory() {
    const std::string path = outputPath(STDOUT_FILENO);
    return path.substr(0, path.rfind('/'));
}

void makeFile(const std::string& path, std::string_view contents) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    writeAll(file, contents);
    close(file);
}

/// A whole number of alphabets.
std::string makeAlphabets() {
    std::string text;
    for (int count = 0; count < 2500; ++count) {
        text += "abcdefghijklmnopqrstuvwxyz";
    }
    return text;
}

const std::string alphabets = makeAlphabets();

/// What an engine writes before it lays hands on its outputs.
constexpr std::string_view fromTheEngine = "from the engine\n";

/// `count` bytes that repeat the alphabet.
void writeAlphabet(int descriptor, long count) {
    for (auto left = static_cast<std::size_t>(count); left > 0;) {
        const std::size_t length = std::min(left, alphabets.size());
        if (!writeAll(descriptor, std::string_view(alphabets).substr(0, length))) {
            return;
        }
        left -= length;
    }
}

int writeOutput(Engine& engine) {
    writeAlphabet(STDOUT_FILENO, engine.numericParameter(0, 1));
    return 0;
}

int writeError(Engine& engine) {
    writeAlphabet(STDERR_FILENO, engine.numericParameter(0, 1));
    return 0;
}

int writeBoth(Engine& engine) {
    const auto turn = static_cast<long>(alphabets.size());
    for (long left = engine.numericParameter(0, 1); left > 0; left -= turn) {
        writeAlphabet(STDOUT_FILENO, std::min(left, turn));
        writeAlphabet(STDERR_FILENO, std::min(left, turn));
    }
    return 0;
}

int writeGarbage(Engine&) {
    std::string garbage;
    for (int value = 255; value >= 0; --value) {
        garbage += static_cast<char>(value);
    }
    writeAll(STDOUT_FILENO, garbage);
    writeAll(STDERR_FILENO, garbage);
    return 0;
}

int growOutput(Engine& engine) {
    return ftruncate(STDOUT_FILENO, engine.numericParameter(0, 1)) == 0 ? 0 : 1;
}

int closeOutputs(Engine&) {
    close(STDOUT_FILENO);
    close(STDERR_FILENO);
    return 0;
}

int removeOutputDirectory(Engine&) {
    writeAll(STDOUT_FILENO, fromTheEngine);
    const std::string directory = outputDirectory();
    unlink(outputPath(STDOUT_FILENO).c_str());
    unlink(outputPath(STDERR_FILENO).c_str());
    return rmdir(directory.c_str()) == 0 ? 0 : 1;
}

int replaceOutputDirectory(Engine& engine) {
    const std::string directory = outputDirectory();
    return removeOutputDirectory(engine) == 0 ? symlink(engine.parameter(0, "/").c_str(), directory.c_str()) : 1;
}

int removeOutputFile(Engine& engine) {
    writeAll(STDOUT_FILENO, fromTheEngine);
    return unlink((outputDirectory() + "/" + engine.parameter(0, "stdout")).c_str()) == 0 ? 0 : 1;
}

int replaceOutput(Engine& engine) {
    const std::string path = outputPath(STDOUT_FILENO);
    const std::string kind = engine.parameter(0, "file");
    writeAll(STDOUT_FILENO, fromTheEngine);
    unlink(path.c_str());
    if (kind == "link") {
        return symlink(engine.parameter(1, "/etc/hostname").c_str(), path.c_str());
    }
    if (kind == "directory") {
        return mkdir(path.c_str(), 0700);
    }
    if (kind == "fifo") {
        return mkfifo(path.c_str(), 0600);
    }
    makeFile(path, "replaced");
    return 0;
}

int hideOutputs(Engine&) {
    writeAll(STDOUT_FILENO, fromTheEngine);
    return fchmod(STDOUT_FILENO, 0) == 0 && fchmod(STDERR_FILENO, 0) == 0 ? 0 : 1;
}

int litterOutputDirectory(Engine& engine) {
    const std::string directory = outputDirectory();
    makeFile(directory + "/another file", "left behind");
    mkdir((directory + "/folder").c_str(), 0700);
    makeFile(directory + "/folder/.hidden", "left behind");
    return symlink(engine.parameter(0, "/").c_str(), (directory + "/link").c_str());
}

int lockOutputDirectory(Engine&) {
    const std::string directory = outputDirectory();
    mkdir((directory + "/folder").c_str(), 0700);
    makeFile(directory + "/folder/file", "left behind");
    return chmod((directory + "/folder").c_str(), 0) == 0 && chmod(directory.c_str(), 0500) == 0 ? 0 : 1;
}

} // namespace

std::vector<Misbehavior> outputMisbehaviors() {
    return {
        {"write-output", "COUNT: writes so many bytes of the repeated alphabet to standard output", writeOutput},
        {"write-error", "COUNT: the same to standard error", writeError},
        {"write-both", "COUNT: so many bytes to each, in turns of 65,000", writeBoth},
        {"write-garbage", "writes every byte value to both outputs", writeGarbage},
        {"grow-output", "COUNT: makes standard output so long without writing to the disk", growOutput},
        {"close-outputs", "closes both outputs", closeOutputs},
        {"remove-output-directory", "removes the directory that its outputs go to", removeOutputDirectory},
        {"replace-output-directory", "TARGET: puts a link to TARGET in the place of that directory",
         replaceOutputDirectory},
        {"remove-output-file", "NAME: removes one file of that directory", removeOutputFile},
        {"replace-output", "file|fifo|directory|link [TARGET]: puts another thing in the place of the file stdout",
         replaceOutput},
        {"hide-outputs", "takes every permission away from its output files", hideOutputs},
        {"litter-output-directory", "TARGET: adds files, a folder and a link to TARGET to that directory",
         litterOutputDirectory},
        {"lock-output-directory", "adds a locked folder to that directory and takes away the right to write in it",
         lockOutputDirectory},
    };
}
