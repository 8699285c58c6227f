#include "AmbrelRecoveryApp/Secrets/ProcessSetup.h"

#include <cerrno>
#include <csignal>
#include <initializer_list>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

void openClosedStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0 && errno == EBADF) {
            // The lowest free descriptor is this stream's.
            static_cast<void>(open("/dev/null", stream == STDIN_FILENO ? O_RDONLY : O_WRONLY));
        }
    }
}

void forbidCoreDumps() {
    // Not 0, which the kernel ignores if it pipes dumps to a collector. No dump file is this short.
    const rlimit shortest{1, 1};
    setrlimit(RLIMIT_CORE, &shortest);
}

} // namespace

void ProcessSetup::prepare() {
    openClosedStandardStreams();
    // If the parent ignores SIGCHLD, so does this process, and the engine's exit status would be lost.
    static_cast<void>(std::signal(SIGCHLD, SIG_DFL));
    forbidCoreDumps();
}

void ProcessSetup::keepOthersOut() {
    prctl(PR_SET_DUMPABLE, 0);
}
