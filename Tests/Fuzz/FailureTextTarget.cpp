// The engine's error text, by which its failures are told apart.

#include "AmbrelRecoveryAppSupport/AmbrelRecoveryFailureKind.h"
#include "Fuzz/FuzzInput.h"
#include "Fuzz/Fuzzing.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using Fuzzing::expect;
using Kind = AmbrelRecoveryFailureKind;
using Factor = AmbrelRecoveryAppFactor;

/// The text in lower case as ICU makes it; none where it is no UTF-8.
std::optional<icu::UnicodeString> lowerCased(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    std::vector<char16_t> units(text.size() + 1);
    std::int32_t length = 0;
    ::u_strFromUTF8(units.data(), static_cast<std::int32_t>(units.size()), &length, text.data(),
                    static_cast<std::int32_t>(text.size()), &status);
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    return icu::UnicodeString(units.data(), length).toLower(icu::Locale::getRoot());
}

Kind expectedKind(std::int32_t exitCode, std::string_view text, Factor factor) {
    const Kind wrongCredential = factor == Factor::recoveryKey ? Kind::wrongRecoveryKey : Kind::wrongPassphrase;
    const std::array<std::pair<const char*, Kind>, 8> table = {{
        {"did not unlock", wrongCredential},
        {"credential is invalid", wrongCredential},
        {"invalid or unsupported", Kind::invalidPackage},
        {"package is unavailable", Kind::packageUnavailable},
        {"integrity verification failed", Kind::integrityFailure},
        {"destination already exists", Kind::destinationExists},
        {"destination is unavailable", Kind::destinationUnavailable},
        {"output could not be written", Kind::destinationUnavailable},
    }};
    if (exitCode == 15 || exitCode == -15) {
        return Kind::cancelled;
    }
    const std::optional<icu::UnicodeString> lower = lowerCased(text);
    for (const auto& [words, kind] : table) {
        if (lower && lower->indexOf(icu::UnicodeString(words)) >= 0) {
            return kind;
        }
    }
    return Kind::generic;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    // Small exit codes, as real ones are; 241 stands for -15.
    const std::int32_t exitCode = static_cast<std::int8_t>(input.takeByte());
    const std::string text(input.takeRest());
    for (const Factor factor : allRecoveryAppFactors) {
        const Kind kind = classify({.exitCode = exitCode, .standardOutput = text, .standardError = text}, factor);
        expect(kind == expectedKind(exitCode, text, factor), "the first known words decide");
        expect(kind == classify({.exitCode = exitCode, .standardOutput = {}, .standardError = text}, factor),
               "the output plays no part");
    }
    return 0;
}
