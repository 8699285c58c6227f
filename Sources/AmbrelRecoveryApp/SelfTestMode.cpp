#include "AmbrelRecoveryApp/SelfTestMode.h"

#include "AmbrelPlatform/ApplicationBundle.h"
#include "AmbrelRecoveryApp/Model/RecoveryEngineCommandLine.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryExecutableLocator.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string_view>

#include <unistd.h>

namespace {

void writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count > 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (count < 0 && errno != EINTR) {
            return;
        }
    }
}

} // namespace

bool SelfTestMode::isRequested(std::span<const char* const> arguments) {
    return std::ranges::any_of(arguments, [](std::string_view argument) { return argument == "--self-test"; });
}

int SelfTestMode::run() {
    // If the reader has closed the pipe, the text is lost, but the exit status still reports the result.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    try {
        AmbrelRecoveryProcessRunner runner(
            AmbrelRecoveryExecutableLocator::bundledExecutable(ApplicationBundle::mainBundle()));
        const AmbrelRecoveryProcessResult result = runner.run(
            RecoveryEngineCommandLine::selfTestArguments(), std::nullopt, AmbrelRecoveryProcessRunner::defaultTimeout);
        writeAll(STDOUT_FILENO, result.standardOutput);
        writeAll(STDERR_FILENO, result.standardError);
        return result.exitCode;
    } catch (...) {
        writeAll(STDERR_FILENO, "Ambrel Recovery app self-test failed.\n");
        return EXIT_FAILURE;
    }
}
