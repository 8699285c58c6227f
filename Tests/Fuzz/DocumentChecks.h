#pragma once

#include "AmbrelRecoveryAppSupport/DocumentDecodingError.h"
#include "Fuzz/Fuzzing.h"
#include "Fuzz/JsonReading.h"

#include <optional>
#include <string>
#include <string_view>

/// What holds for every document of the engine.
namespace DocumentChecks {

/// Expects `decoded` to be UTF-8 and what stands under `key`.
void expectText(const JsonReading& reading, std::string_view key, const std::string& decoded);

/// The document that `json` decodes to, or none where decoding refuses it. Expects that none is refused of which
/// `isWhole` finds every part in its reading, and that a line feed at the end changes nothing.
template<typename Document>
std::optional<Document> decoded(std::string_view json, bool (*isWhole)(const JsonReading&)) {
    std::optional<Document> document;
    try {
        document = Document::decode(json);
    } catch (const DocumentDecodingError&) {
        Fuzzing::expect(!isWhole(JsonReading(json)), "a whole document is decoded");
        return std::nullopt;
    }
    Fuzzing::expect(*document == Document::decode(std::string(json) + "\n"), "a line feed at the end changes nothing");
    return document;
}

} // namespace DocumentChecks
