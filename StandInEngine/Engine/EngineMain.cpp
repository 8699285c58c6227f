#include "Common/DescriptorIO.h"
#include "Common/FailureText.h"
#include "Common/ProcessHardening.h"
#include "Common/StopRequest.h"
#include "Common/Stopped.h"
#include "Engine/CommandLine.h"
#include "Engine/CredentialInput.h"
#include "Engine/Engine.h"
#include "SelfTest/SelfTest.h"

#include <sodium.h>

#include <algorithm>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace {

constexpr int usageStatus = 64;

void printReport(std::string_view text) {
    if (!DescriptorIO::writeFully(STDOUT_FILENO, bytesOf(text))) {
        throw Failure(FailureReason::reportNotPrinted);
    }
}

// If standard error cannot be written to, the text is lost; the exit status still reports the failure.
void printError(std::string_view text) {
    static_cast<void>(DescriptorIO::writeFully(STDERR_FILENO, bytesOf(text)));
}

Credential readCredential(const CommandLine& line) {
    return {line.factor, CredentialInput::read(STDIN_FILENO)};
}

int fail(const Failure& failure) {
    printError(FailureText::line("ambrel-recovery (stand-in engine)", failure));
    return FailureText::exitStatus(failure.reason());
}

int run(const std::vector<std::string>& arguments) {
    const std::optional<CommandLine> line = CommandLine::parse(arguments);
    if (!line) {
        printError(CommandLine::usage());
        return usageStatus;
    }
    switch (line->command) {
    case CommandLine::Command::help:
        printReport(CommandLine::usage());
        return 0;
    case CommandLine::Command::selfTest:
        return SelfTest::run(printReport) ? 0 : 1;
    case CommandLine::Command::inspect:
        Engine::inspect(*line, readCredential(*line), printReport);
        return 0;
    case CommandLine::Command::exportSnapshot:
        Engine::exportSnapshot(*line, readCredential(*line), printReport);
        return 0;
    }
    return usageStatus;
}

} // namespace

int main(int argumentCount, char** arguments) {
    const ProcessHardening hardening;
    try {
        if (sodium_init() < 0) {
            throw Failure(FailureReason::unexpected, "the cryptography library does not start");
        }
        return run(std::vector<std::string>(arguments + std::min(argumentCount, 1), arguments + argumentCount));
    } catch (const Stopped& stopped) {
        StopRequest::endBySignal(stopped.signal);
    } catch (const Failure& failure) {
        return fail(failure);
    } catch (const std::bad_alloc&) {
        return fail(Failure(FailureReason::outOfMemory));
    } catch (const std::exception&) {
        return fail(Failure(FailureReason::unexpected));
    }
}
