#include "Common/ProcessHardening.h"

#include <csignal>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

// The kernel sends the signal only if the parent dies after this call. If it dies during the call, its process
// identifier changes, which is detected below. If it died even earlier, it has most likely not written the credential:
// then the end of the input ends this process as well.
void endTogetherWithParent() {
    const pid_t parent = ::getppid();
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() != parent) {
        std::raise(SIGTERM);
    }
}

} // namespace

ProcessHardening::ProcessHardening() {
    // A limit of 0 does not apply to dumps that are piped to a program. If the hard limit is already 0, no limit can
    // prevent those.
    const rlimit shortest = {1, 1};
    ::setrlimit(RLIMIT_CORE, &shortest);
    ::prctl(PR_SET_DUMPABLE, 0);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    endTogetherWithParent();
}

ProcessHardening::~ProcessHardening() {
    ::prctl(PR_SET_DUMPABLE, 1);
}
