#pragma once

#include "AmbrelRecoveryAppSupport/DocumentDecodingError.h"
#include "AmbrelRecoveryAppSupport/PlainNumbers.h"

#include <simdjson.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Strict reading of one JSON object of an engine document: a key that is missing, null, of another type or outside the
/// range of the asked type throws DocumentDecodingError. A number is an integer by its value and not by its spelling:
/// 5.0 and 1e2 are. Keys that are not asked for are ignored, however large the numbers below them. Of a key given twice
/// the first counts. A view: valid while the parser that made it lives. Not synchronised.
class DocumentObject {
public:
    /// The longest text that is parsed, in bytes: more than a million snapshots, and so more than anyone's list of
    /// them. The parser takes a multiple of the text's length in memory.
    static constexpr std::size_t longestText = 512UL * 1024 * 1024;

    /// Parses `json`, a whole document whose top level is an object, and returns `decode(object)`. A byte order mark
    /// may stand before it. `decode` is called again where it throws DocumentDecodingError and numbers of the text can
    /// be spelled in a plainer way. Throws DocumentDecodingError where the text is no such document or too long, and
    /// what `decode` throws.
    template<typename Decode>
    static auto parse(std::string_view json, const Decode& decode) {
        if (json.size() > longestText) {
            throw DocumentDecodingError();
        }
        simdjson::dom::parser parser;
        try {
            return decode(top(parser, json));
        } catch (const DocumentDecodingError&) {
            // Not at once: nearly every document spells its numbers plainly and is spared the copy.
            const std::optional<std::string> plain = PlainNumbers::rewritten(json);
            if (!plain || plain->size() > longestText) {
                throw;
            }
            return decode(top(parser, *plain));
        }
    }

    std::string string(std::string_view key) const;
    /// None where the key is missing or null.
    std::optional<std::string> optionalString(std::string_view key) const;
    bool boolean(std::string_view key) const;
    std::int64_t signedInteger(std::string_view key) const;
    std::uint64_t unsignedInteger(std::string_view key) const;
    DocumentObject object(std::string_view key) const;
    std::vector<DocumentObject> objects(std::string_view key) const;
    std::vector<std::string> strings(std::string_view key) const;

private:
    explicit DocumentObject(simdjson::dom::object object) : object_(object) {}

    static DocumentObject top(simdjson::dom::parser& parser, std::string_view json);

    simdjson::dom::object object_;
};
