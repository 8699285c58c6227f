#pragma once

#include "AmbrelRecoveryAppSupport/DocumentDecodingError.h"
#include "Fuzz/Fuzzing.h"
#include "Fuzz/JsonReading.h"

#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// What holds for every document of the engine.
namespace DocumentChecks {

/// Expects `decoded` to be UTF-8 and what stands under `key`.
void expectText(const JsonReading& reading, std::string_view key, const std::string& decoded);

/// Expects `decoded` to be the number under `key`.
template<typename Number>
void expectNumber(const JsonReading& reading, std::string_view key, Number decoded) {
    if (const auto value = reading.value(key)) {
        // Beyond this Qt keeps of many numbers the nearest floating-point number alone.
        constexpr double exactlyHeld = 0x1p53;
        const double number = value->toDouble();
        Fuzzing::expect(value->isDouble(), "a number is one in the document");
        Fuzzing::expect(std::abs(number) < exactlyHeld ? std::cmp_equal(value->toInteger(), decoded)
                                                       : number == static_cast<double>(decoded),
                        "a number is the one of the document");
    }
}

/// The document that `json` decodes to, or none where decoding refuses it. Expects that none is refused of which
/// `isWhole` finds every part in its reading, and that a line feed at the end changes nothing.
template<typename Document>
std::optional<Document> decoded(std::string_view json, bool (*isWhole)(const JsonReading&)) {
    std::optional<Document> document;
    try {
        document.emplace(Document::decode(json));
    } catch (const DocumentDecodingError&) {
        Fuzzing::expect(!isWhole(JsonReading(json)), "a whole document is decoded");
        return std::nullopt;
    }
    Fuzzing::expect(*document == Document::decode(std::string(json) + "\n"), "a line feed at the end changes nothing");
    return document;
}

} // namespace DocumentChecks
