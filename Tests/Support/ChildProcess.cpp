#include "Support/ChildProcess.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <exception>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <grp.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr uid_t nobody = 65534;

void require(bool succeeded, const char* what) {
    if (!succeeded) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

std::string textOf(const std::function<std::string()>& body) {
    try {
        return body();
    } catch (const std::exception& error) {
        return std::string("exception: ") + error.what();
    } catch (...) {
        return "exception of an unknown type";
    }
}

[[noreturn]] void runChild(const std::function<std::string()>& body, int report) {
    const std::string text = textOf(body);
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t count = write(report, rest.data(), rest.size());
        if (count <= 0) {
            _exit(EXIT_FAILURE);
        }
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
    _exit(EXIT_SUCCESS);
}

std::string readToEnd(int descriptor) {
    std::string text;
    std::array<char, 4096> buffer;
    for (;;) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count == 0) {
            return text;
        }
        if (count > 0) {
            text.append(buffer.data(), static_cast<std::size_t>(count));
        } else {
            require(errno == EINTR, "read");
        }
    }
}

} // namespace

std::string ChildProcess::outcome(const std::function<std::string()>& body) {
    std::array<int, 2> report{};
    require(pipe2(report.data(), O_CLOEXEC) == 0, "pipe2");
    const pid_t child = fork();
    require(child >= 0, "fork");
    if (child == 0) {
        close(report[0]);
        // A body may close or use up the low descriptors.
        const int outOfTheWay = fcntl(report[1], F_DUPFD_CLOEXEC, 200);
        close(report[1]);
        runChild(body, outOfTheWay);
    }
    close(report[1]);
    std::string text = readToEnd(report[0]);
    close(report[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFSIGNALED(status)) {
        text += "the child process died of signal " + std::to_string(WTERMSIG(status));
    } else if (WEXITSTATUS(status) != EXIT_SUCCESS) {
        text += "the child process exited with status " + std::to_string(WEXITSTATUS(status));
    }
    return text;
}

void ChildProcess::dropPrivileges() {
    if (geteuid() != 0) {
        return;
    }
    require(setgroups(0, nullptr) == 0, "setgroups");
    require(setgid(nobody) == 0, "setgid");
    require(setuid(nobody) == 0, "setuid");
    // Otherwise /proc/self would still belong to the former user.
    require(prctl(PR_SET_DUMPABLE, 1) == 0, "prctl");
}
