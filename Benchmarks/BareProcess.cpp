#include "BareProcess.h"

#include <stdexcept>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

pid_t BareProcess::start(const std::vector<std::string>& command, int standardOutput) {
    std::vector<char*> arguments;
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    // The fastest way is the point of comparison.
    const pid_t process = ::vfork(); // NOLINT(clang-analyzer-security.insecureAPI.vfork)
    if (process == 0) {
        const int output = standardOutput >= 0 ? standardOutput : ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        ::dup2(output, STDOUT_FILENO);
        ::execv(arguments.front(), arguments.data());
        ::_exit(127);
    }
    if (process < 0) {
        throw std::runtime_error("no process could be started");
    }
    return process;
}

int BareProcess::wait(pid_t process) {
    int status = -1;
    ::waitpid(process, &status, 0);
    return status;
}
