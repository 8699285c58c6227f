#include "AmbrelRecoveryAppSupport/CredentialPipe.h"

#include "AmbrelPlatform/RetryInterrupted.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// Suppresses SIGPIPE in the calling thread, and restores the thread's signal state.
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
    // The engine's end stays blocking.
    if (!readEnd_ || !writeEnd_ || fcntl(writeEnd_.get(), F_SETFL, O_NONBLOCK) != 0) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
    payload_ = SecretBytes(credential->size() + 1);
    std::ranges::copy(*credential, payload_.bytes().begin());
    payload_.bytes().back() = std::byte{'\n'};
    delivery_ = Delivery::pending;
}

CredentialPipe::Delivery CredentialPipe::deliver() {
    if (delivery_ != Delivery::pending) {
        return delivery_;
    }
    // A credential that fits into the pipe is delivered even if the engine has ended before reading it: the engine's
    // exit status and message are more useful than a broken pipe. For a longer one, the write must fail then.
    if (!holdsPayload()) {
        readEnd_.close();
    }
    delivery_ = writePayload();
    if (delivery_ != Delivery::pending) {
        readEnd_.close();
        payload_.wipe();
        delivery_ = writeEnd_.close() ? delivery_ : Delivery::failed;
    }
    return delivery_;
}

bool CredentialPipe::holdsPayload() const {
    const int capacity = fcntl(writeEnd_.get(), F_GETPIPE_SZ);
    return capacity >= 0 && static_cast<std::size_t>(capacity) >= payload_.size();
}

CredentialPipe::Delivery CredentialPipe::writePayload() {
    const BrokenPipeSignalBlock block;
    while (written_ < payload_.size()) {
        const std::span<const std::byte> rest = payload_.bytes().subspan(written_);
        const ssize_t count = retryInterrupted([&] { return write(writeEnd_.get(), rest.data(), rest.size()); });
        if (count < 0) {
            return errno == EAGAIN ? Delivery::pending : Delivery::failed;
        }
        written_ += static_cast<std::size_t>(count);
    }
    return Delivery::complete;
}
