#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessError.h"
#include "AmbrelRecoveryAppSupport/CredentialPipe.h"
#include "AmbrelRecoveryAppSupport/EngineProcess.h"
#include "AmbrelRecoveryAppSupport/ExecutableFile.h"
#include "AmbrelRecoveryAppSupport/PrivateOutputDirectory.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace {

constexpr std::chrono::milliseconds waitSlice(100);

/// An empty path, or a relative one whose working directory is gone, is returned as it is: a run finds nothing there.
std::filesystem::path standardized(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return (error ? path : absolute).lexically_normal();
}

double wallClockSeconds() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

[[noreturn]] void endAndThrow(EngineProcess& process, AmbrelRecoveryProcessError error) {
    process.requestTermination();
    process.waitForExit();
    throw error;
}

/// Delivers the credential and waits until the process has ended, for at most `timeout` seconds of wall-clock time.
/// Only an engine that was asked to end may leave the credential unread.
void deliverAndWaitForExit(CredentialPipe& pipe, EngineProcess& process, double timeout) {
    using Delivery = CredentialPipe::Delivery;
    const double deadline = wallClockSeconds() + timeout;
    Delivery delivery = pipe.deliver();
    while (!process.waitForExit(std::chrono::milliseconds(0))) {
        if (delivery == Delivery::failed && !process.isAskedToEnd()) {
            endAndThrow(process, AmbrelRecoveryProcessError::launchFailed);
        }
        if (wallClockSeconds() >= deadline) {
            endAndThrow(process, AmbrelRecoveryProcessError::timedOut);
        }
        process.waitForExit(waitSlice, pipe.pendingEnd());
        delivery = pipe.deliver();
    }
    if (delivery != Delivery::complete && !process.isAskedToEnd()) {
        throw AmbrelRecoveryProcessError::launchFailed;
    }
}

} // namespace

/// Registers a process as the runner's active process.
class AmbrelRecoveryProcessRunner::Registration {
public:
    /// Throws AmbrelRecoveryProcessError::operationAlreadyRunning.
    Registration(AmbrelRecoveryProcessRunner& runner, std::shared_ptr<EngineProcess> process)
        : runner_(runner), process_(std::move(process)) {
        const std::lock_guard lock(runner_.mutex_);
        if (runner_.activeProcess_) {
            throw AmbrelRecoveryProcessError::operationAlreadyRunning;
        }
        runner_.activeProcess_ = process_;
    }

    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

    ~Registration() {
        const std::lock_guard lock(runner_.mutex_);
        if (runner_.activeProcess_ == process_) {
            runner_.activeProcess_.reset();
        }
    }

private:
    AmbrelRecoveryProcessRunner& runner_;
    const std::shared_ptr<EngineProcess> process_;
};

AmbrelRecoveryProcessRunner::AmbrelRecoveryProcessRunner(const std::filesystem::path& executableURL)
    : executableURL_(standardized(executableURL)) {}

AmbrelRecoveryProcessResult AmbrelRecoveryProcessRunner::run(const std::vector<std::string>& arguments,
                                                             std::optional<std::span<const std::byte>> credential,
                                                             double timeout, const std::stop_token& stopToken) {
    if (!isExecutableFile(executableURL_)) {
        throw AmbrelRecoveryProcessError::executableUnavailable;
    }
    // Destroyed in reverse order on every path; each object releases its resource in its destructor.
    const PrivateOutputDirectory directory;
    const UniqueDescriptor standardOutput = directory.createFile(PrivateOutputDirectory::standardOutputName);
    const UniqueDescriptor standardError = directory.createFile(PrivateOutputDirectory::standardErrorName);
    CredentialPipe pipe(credential);
    const auto process = std::make_shared<EngineProcess>(EngineProcess::Configuration{
        executableURL_, arguments, pipe.readEnd(), standardOutput.get(), standardError.get()});
    // Registered only now, so that a refused run has touched nothing but its own directory.
    const Registration registration(*this, process);

    process->launch();
    if (stopToken.stop_requested()) {
        process->requestTermination();
    }
    deliverAndWaitForExit(pipe, *process, timeout);
    return {process->terminationStatus(), PrivateOutputDirectory::contentsOf(standardOutput),
            PrivateOutputDirectory::contentsOf(standardError)};
}

void AmbrelRecoveryProcessRunner::cancelCurrentOperation() {
    std::shared_ptr<EngineProcess> process;
    {
        const std::lock_guard lock(mutex_);
        process = activeProcess_;
    }
    if (process) {
        process->requestTermination();
    }
}
