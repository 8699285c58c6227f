#include "AmbrelRecoveryAppSupport/AmbrelRecoveryFailureKind.h"

#include <simdjson.h>

#include <array>
#include <csignal>
#include <string>
#include <string_view>

namespace {

struct FailureText {
    /// In lower case; matched anywhere in the engine's error text.
    std::string_view text;
    AmbrelRecoveryFailureKind withPassphrase;
    AmbrelRecoveryFailureKind withRecoveryKey;

    constexpr FailureText(std::string_view wanted, AmbrelRecoveryFailureKind kind) : FailureText(wanted, kind, kind) {}
    constexpr FailureText(std::string_view wanted, AmbrelRecoveryFailureKind passphraseKind,
                          AmbrelRecoveryFailureKind recoveryKeyKind)
        : text(wanted), withPassphrase(passphraseKind), withRecoveryKey(recoveryKeyKind) {}
};

using enum AmbrelRecoveryFailureKind;

/// Searched in this order; the first match decides.
constexpr std::array failureTexts = {
    FailureText("did not unlock", wrongPassphrase, wrongRecoveryKey),
    FailureText("credential is invalid", wrongPassphrase, wrongRecoveryKey),
    FailureText("invalid or unsupported", invalidPackage),
    FailureText("package is unavailable", packageUnavailable),
    FailureText("integrity verification failed", integrityFailure),
    FailureText("destination already exists", destinationExists),
    FailureText("destination is unavailable", destinationUnavailable),
    FailureText("output could not be written", destinationUnavailable),
};

/// All texts searched for are ASCII, so only characters whose lower case is an ASCII letter matter: the ASCII letters,
/// and the Kelvin sign, whose lower case is a plain k.
std::string lowerCased(std::string_view text) {
    constexpr std::string_view kelvinSign = "\xE2\x84\xAA";
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const bool isKelvin = text.starts_with(kelvinSign);
        const char character = isKelvin ? 'k' : text.front();
        result += character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
        text.remove_prefix(isKelvin ? kelvinSign.size() : 1);
    }
    return result;
}

} // namespace

AmbrelRecoveryFailureKind classify(const AmbrelRecoveryProcessResult& result, AmbrelRecoveryAppFactor factor) {
    if (result.exitCode == SIGTERM || result.exitCode == -SIGTERM) {
        return cancelled;
    }
    if (!simdjson::validate_utf8(result.standardError)) {
        return generic;
    }
    const std::string errorText = lowerCased(result.standardError);
    for (const FailureText& failure : failureTexts) {
        if (errorText.find(failure.text) != std::string::npos) {
            return factor == AmbrelRecoveryAppFactor::recoveryKey ? failure.withRecoveryKey : failure.withPassphrase;
        }
    }
    return generic;
}
