#include "Common/ProcessHardening.h"

#include <csignal>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

// The kernel sends the signal only for a parent that dies later, so a parent that died while it was being armed is
// noticed by its number having changed. One that died still earlier has most likely not written the credential: then
// the end of the input ends this process as well.
void endTogetherWithParent() {
    const pid_t parent = ::getppid();
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() != parent) {
        std::raise(SIGTERM);
    }
}

} // namespace

ProcessHardening::ProcessHardening() {
    // A limit of 0 would not hold for dumps that are piped to a collecting program, and none holds where the hard limit
    // is 0 already.
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
