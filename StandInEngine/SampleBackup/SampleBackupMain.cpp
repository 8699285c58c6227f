#include "Common/DescriptorIO.h"
#include "Common/FailureText.h"
#include "Common/ProcessHardening.h"
#include "Common/StopRequest.h"
#include "Common/Stopped.h"
#include "Engine/CredentialInput.h"
#include "Format/RecoveryKey.h"
#include "SampleBackup/SampleBackup.h"
#include "SampleBackup/SamplePassphrase.h"

#include <sodium.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

constexpr const char* program = "make-sample-backup";

// Written at once, so that a reader that stops after the first line has received everything.
void print(std::initializer_list<ByteView> parts) {
    std::size_t size = 0;
    for (const ByteView part : parts) {
        size += part.size();
    }
    SecretBytes text(size);
    auto end = text.bytes().begin();
    for (const ByteView part : parts) {
        end = std::ranges::copy(part, end).out;
    }
    if (!DescriptorIO::writeFully(STDOUT_FILENO, text.bytes())) {
        throw Failure(FailureReason::reportNotPrinted);
    }
}

int fail(std::string_view text, int status) {
    static_cast<void>(DescriptorIO::writeFully(STDERR_FILENO, bytesOf(text)));
    return status;
}

int run(const std::vector<std::string>& arguments) {
    if (arguments == std::vector<std::string>{"--help"}) {
        print({bytesOf(SampleOptions::usage())});
        return 0;
    }
    const std::optional<SampleOptions> options = SampleOptions::parse(arguments);
    if (!options) {
        return fail(SampleOptions::usage(), 64);
    }
    const SecretBytes passphrase =
        options->readsPassphrase ? CredentialInput::read(STDIN_FILENO) : SamplePassphrase::generate();
    if (passphrase.size() == 0) {
        throw Failure(FailureReason::credentialInvalid, "the passphrase is empty");
    }
    const SecretBytes recoveryKey = RecoveryKey::generate();
    SampleBackup::make(*options, passphrase, recoveryKey, [&] {
        const std::string package = std::filesystem::absolute(options->outputPath).string();
        print({bytesOf("package: "), bytesOf(package), bytesOf("\npassphrase: "), passphrase.bytes(),
               bytesOf("\nrecovery key: "), RecoveryKey::print(recoveryKey).bytes(), bytesOf("\n")});
    });
    return 0;
}

} // namespace

int main(int argumentCount, char** arguments) {
    const ProcessHardening hardening;
    try {
        if (sodium_init() < 0) {
            throw Failure(FailureReason::unexpected, "the cryptography library does not start");
        }
        return run(std::vector<std::string>(arguments + 1, arguments + argumentCount));
    } catch (const Stopped& stopped) {
        StopRequest::endBySignal(stopped.signal);
    } catch (const Failure& failure) {
        return fail(FailureText::line(program, failure), FailureText::exitStatus(failure.reason()));
    } catch (const std::exception& error) {
        return fail(std::string(program) + ": " + error.what() + "\n", 1);
    }
}
