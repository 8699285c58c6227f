#include "Engine.h"

#include "Text.h"

#include <cctype>
#include <cstdlib>
#include <sstream>

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Keeps a line of the log below what a pipe takes in one piece.
constexpr std::size_t loggedBytes = 1024;

std::string environment(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    return value != nullptr ? value : "";
}

/// "self-test" asks for the variable ..._SELF_TEST.
std::string commandSuffix(const std::string& command) {
    std::string suffix = "_";
    for (const char character : command) {
        suffix += character == '-' ? '_' : static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    }
    return suffix;
}

/// The text itself, or what the file holds that it names behind an "@".
std::string resolved(const std::string& text) {
    if (!text.starts_with('@')) {
        return text;
    }
    const int file = open(text.c_str() + 1, O_RDONLY | O_CLOEXEC);
    std::string contents = readToEnd(file);
    close(file);
    return contents;
}

std::string parent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

void waitForFile(const std::string& path) {
    const int changes = inotify_init1(IN_CLOEXEC);
    inotify_add_watch(changes, parent(path).c_str(), IN_CREATE | IN_MOVED_TO);
    struct stat status {};
    // The file may have come before the watch: it is looked for only once the watch is there.
    while (stat(path.c_str(), &status) != 0) {
        alignas(inotify_event) char event[4096];
        if (read(changes, event, sizeof event) <= 0) {
            break;
        }
    }
    close(changes);
}

} // namespace

Engine::Engine(int argumentCount, char** arguments) : arguments_(arguments + 1, arguments + argumentCount) {
    const std::string variable = "AMBREL_TEST_MISBEHAVIOR";
    std::string chosen;
    if (!arguments_.empty()) {
        chosen = environment(variable + commandSuffix(arguments_.front()));
    }
    if (chosen.empty()) {
        chosen = environment(variable);
    }
    if (!chosen.empty()) {
        choose(resolved(chosen));
    } else if (!arguments_.empty()) {
        misbehavior_ = arguments_.front();
        parameters_.assign(arguments_.begin() + 1, arguments_.end());
    }
    const std::string logPath = environment("AMBREL_TEST_ENGINE_LOG");
    if (!logPath.empty()) {
        log_ = open(logPath.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    }
    log("started " + std::to_string(getpid()));
    for (const std::string& argument : arguments_) {
        log("argument " + escaped(argument));
    }
}

std::string Engine::parameter(std::size_t index, std::string_view otherwise) const {
    return index < parameters_.size() ? parameters_[index] : std::string(otherwise);
}

long Engine::numericParameter(std::size_t index, long otherwise) const {
    return number(parameter(index), otherwise);
}

void Engine::log(std::string_view line) const {
    if (log_ >= 0) {
        writeAll(log_, std::string(line) + "\n");
    }
}

void Engine::readInput() {
    input_ = readToEnd(STDIN_FILENO);
    log("input " + std::to_string(input_.size()) + " " + hexadecimal(std::string_view(input_).substr(0, loggedBytes)));
}

void Engine::waitForGate() {
    const std::string path = environment("AMBREL_TEST_ENGINE_GATE");
    if (path.empty() || gatePassed_) {
        return;
    }
    gatePassed_ = true;
    log("waiting");
    struct stat status {};
    if (stat(path.c_str(), &status) == 0 && S_ISFIFO(status.st_mode)) {
        const int gate = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        char byte = 0;
        while (read(gate, &byte, 1) < 0) {
        }
        close(gate);
    } else {
        waitForFile(path);
    }
}

void Engine::waitForSignal() const {
    log("waiting");
    for (;;) {
        pause();
    }
}

void Engine::choose(std::string text) {
    std::istringstream words(text);
    words >> misbehavior_;
    for (std::string word; words >> word;) {
        parameters_.push_back(word);
    }
}
