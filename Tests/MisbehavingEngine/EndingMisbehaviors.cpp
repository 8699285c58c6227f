#include "Engine.h"
#include "Misbehavior.h"
#include "Text.h"

#include <csignal>
#include <string>

#include <sys/resource.h>
#include <unistd.h>

namespace {

int descriptorForHandler = -1;
int statusForHandler = 0;

void noteTermination(int) {
    writeAll(descriptorForHandler, "asked to end\n");
}

void exitOnTermination(int) {
    writeAll(descriptorForHandler, "asked to end\n");
    _exit(statusForHandler);
}

void handleTermination(const Engine& engine, void (*handler)(int)) {
    descriptorForHandler = engine.logDescriptor();
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
}

int exitWithStatus(Engine& engine) {
    return static_cast<int>(engine.numericParameter(0, 0));
}

void forbidCoreFile() {
    const rlimit none{};
    setrlimit(RLIMIT_CORE, &none);
}

int dieBySignal(Engine& engine) {
    forbidCoreFile();
    raise(static_cast<int>(engine.numericParameter(0, SIGKILL)));
    return Engine::usageError;
}

int crash(Engine&) {
    forbidCoreFile();
    volatile int* const nowhere = nullptr;
    // The crash itself is what is wanted here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnull-dereference"
    *nowhere = 1;
#pragma GCC diagnostic pop
    return Engine::usageError;
}

int waitForSignal(Engine& engine) {
    engine.waitForSignal();
}

int stopItself(Engine& engine) {
    engine.log("stopping");
    raise(SIGSTOP);
    engine.waitForSignal();
}

int ignoreTermination(Engine& engine) {
    handleTermination(engine, noteTermination);
    engine.readInput();
    engine.log("deaf");
    engine.waitForGate();
    return static_cast<int>(engine.numericParameter(0, 0));
}

int exitWhenAskedToEnd(Engine& engine) {
    statusForHandler = static_cast<int>(engine.numericParameter(0, 0));
    handleTermination(engine, exitOnTermination);
    engine.readInput();
    engine.waitForSignal();
}

int leaveGrandchild(Engine& engine) {
    writeAll(STDOUT_FILENO, "from the engine\n");
    if (fork() == 0) {
        close(STDIN_FILENO);
        engine.waitForGate();
        writeAll(STDOUT_FILENO, "from the grandchild\n");
        engine.log("grandchild finished");
    } else {
        engine.log("leaving");
    }
    _exit(static_cast<int>(engine.numericParameter(0, 0)));
}

} // namespace

std::vector<Misbehavior> endingMisbehaviors() {
    return {
        {"exit", "STATUS: exits", exitWithStatus},
        {"die", "SIGNAL: dies of a signal", dieBySignal},
        {"crash", "writes through a null pointer", crash},
        {"wait", "reads nothing and waits for a signal", waitForSignal, Misbehavior::Input::untouched},
        {"stop", "stops itself like a process that a shell has suspended", stopItself, Misbehavior::Input::untouched},
        {"ignore-termination", "STATUS: reads its input, notes requests to end and exits only when the gate opens",
         ignoreTermination, Misbehavior::Input::untouched},
        {"exit-when-asked", "STATUS: reads its input, waits for a request to end and exits then", exitWhenAskedToEnd,
         Misbehavior::Input::untouched},
        {"leave-grandchild", "STATUS: exits and leaves a process that holds its outputs until the gate opens",
         leaveGrandchild},
    };
}
