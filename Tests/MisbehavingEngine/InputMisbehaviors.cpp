#include "Engine.h"
#include "Misbehavior.h"
#include "Text.h"

#include <cstddef>
#include <string>

#include <unistd.h>

namespace {

void printInput(const std::string& input) {
    writeAll(STDOUT_FILENO, "input " + std::to_string(input.size()) + " " + hexadecimal(input) + "\n");
}

int echoInput(Engine& engine) {
    printInput(engine.input());
    return 0;
}

int echoInputSlowly(Engine&) {
    printInput(readToEnd(STDIN_FILENO, 1));
    return 0;
}

int readPart(Engine& engine) {
    std::string part(static_cast<std::size_t>(engine.numericParameter(0, 1)), '\0');
    for (std::size_t count = 0; count < part.size();) {
        const ssize_t more = read(STDIN_FILENO, part.data() + count, part.size() - count);
        if (more <= 0) {
            return 1;
        }
        count += static_cast<std::size_t>(more);
    }
    return 0;
}

int closeInput(Engine& engine) {
    close(STDIN_FILENO);
    engine.waitForSignal();
}

int closeInputAndExit(Engine& engine) {
    close(STDIN_FILENO);
    return static_cast<int>(engine.numericParameter(0, 0));
}

/// Leaves a process that holds the standard input, unread, until the gate opens.
void leaveReader(Engine& engine) {
    if (fork() == 0) {
        engine.waitForGate();
        engine.log("grandchild finished");
        _exit(0);
    }
    engine.log("leaving");
}

int leaveReaderAndExit(Engine& engine) {
    leaveReader(engine);
    _exit(static_cast<int>(engine.numericParameter(0, 0)));
}

int leaveReaderAndWait(Engine& engine) {
    leaveReader(engine);
    engine.waitForSignal();
}

} // namespace

std::vector<Misbehavior> inputMisbehaviors() {
    return {
        {"echo-input", "prints the length of its standard input and its bytes in hexadecimal digits", echoInput},
        {"echo-input-slowly", "the same, read one byte at a time", echoInputSlowly, Misbehavior::Input::untouched},
        {"read-part", "COUNT: reads so many bytes of its standard input and exits with status 0", readPart,
         Misbehavior::Input::untouched},
        {"close-input", "closes its standard input at once and waits for a signal", closeInput,
         Misbehavior::Input::untouched},
        {"leave-reader",
         "STATUS: exits and leaves a process that holds its standard input, unread, until the gate opens",
         leaveReaderAndExit, Misbehavior::Input::untouched},
        {"leave-reader-and-wait", "leaves such a process and waits for a signal", leaveReaderAndWait,
         Misbehavior::Input::untouched},
        {"close-input-and-exit", "STATUS: closes its standard input at once and exits", closeInputAndExit,
         Misbehavior::Input::untouched},
    };
}
