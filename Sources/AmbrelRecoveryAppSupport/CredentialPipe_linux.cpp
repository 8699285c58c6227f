#include "AmbrelRecoveryAppSupport/CredentialPipe.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/RetryInterrupted.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// Keeps SIGPIPE away from the calling thread, and leaves its signal state as it was.
class BrokenPipeSignalBlock {
public:
    BrokenPipeSignalBlock() {
        sigemptyset(&brokenPipe_);
        sigaddset(&brokenPipe_, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &brokenPipe_, &previous_);
    }

    BrokenPipeSignalBlock(const BrokenPipeSignalBlock&) = delete;
    BrokenPipeSignalBlock& operator=(const BrokenPipeSignalBlock&) = delete;

    ~BrokenPipeSignalBlock() {
        if (!wasPending_) {
            const timespec atOnce{};
            while (sigtimedwait(&brokenPipe_, nullptr, &atOnce) < 0 && errno == EINTR) {
            }
        }
        pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
    }

private:
    sigset_t brokenPipe_{};
    sigset_t previous_{};
    bool wasPending_ = false;
};

} // namespace

CredentialPipe::CredentialPipe(std::optional<std::span<const std::byte>> credential) {
    if (!credential) {
        return;
    }
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    readEnd_ = aboveStandardStreams(UniqueDescriptor(ends[0]));
    writeEnd_ = aboveStandardStreams(UniqueDescriptor(ends[1]));
    if (!readEnd_ || !writeEnd_) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    payload_ = SecretBytes(credential->size() + 1);
    std::ranges::copy(*credential, payload_.bytes().begin());
    payload_.bytes().back() = std::byte{'\n'};
}

bool CredentialPipe::deliver() {
    if (!writeEnd_) {
        return true;
    }
    // What the pipe holds is delivered also where the engine has ended by itself before it read: its own exit status
    // and message tell more than a broken pipe. A longer credential must find the pipe broken then, or it would wait
    // for ever.
    if (!holdsPayload()) {
        readEnd_.close();
    }
    const bool written = writePayload();
    readEnd_.close();
    payload_.wipe();
    return writeEnd_.close() && written;
}

bool CredentialPipe::holdsPayload() const {
    const int capacity = fcntl(writeEnd_.get(), F_GETPIPE_SZ);
    return capacity >= 0 && static_cast<std::size_t>(capacity) >= payload_.size();
}

bool CredentialPipe::writePayload() {
    const BrokenPipeSignalBlock block;
    std::span<const std::byte> rest = payload_.bytes();
    while (!rest.empty()) {
        const ssize_t count = retryInterrupted([&] { return write(writeEnd_.get(), rest.data(), rest.size()); });
        if (count < 0) {
            return false;
        }
        rest = rest.subspan(static_cast<std::size_t>(count));
    }
    return true;
}
