#include "AmbrelRecoveryAppSupport/AmbrelRecoveryFailureKind.h"

#include <simdjson.h>

#include <array>
#include <csignal>
#include <string>
#include <string_view>

namespace {

using enum AmbrelRecoveryFailureKind;

struct FailureText {
    /// In lower case; matched anywhere in the engine's error text.
    std::string_view text;
    AmbrelRecoveryFailureKind kind;
};

/// Searched in this order; the first match decides. The first two concern the credential of either factor.
constexpr std::array<FailureText, 8> failureTexts = {{
    {"did not unlock", wrongPassphrase},
    {"credential is invalid", wrongPassphrase},
    {"invalid or unsupported", invalidPackage},
    {"package is unavailable", packageUnavailable},
    {"integrity verification failed", integrityFailure},
    {"destination already exists", destinationExists},
    {"destination is unavailable", destinationUnavailable},
    {"output could not be written", destinationUnavailable},
}};

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
            const bool isWrongKey = failure.kind == wrongPassphrase && factor == AmbrelRecoveryAppFactor::recoveryKey;
            return isWrongKey ? wrongRecoveryKey : failure.kind;
        }
    }
    return generic;
}
