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

/// Strict access to one JSON object of an engine document. A key that is missing, null, of another type or outside the
/// range of the requested type throws DocumentDecodingError. A number is an integer by its value, not by its spelling:
/// 5.0 and 1e2 are integers. Keys that are not requested are ignored, even if they contain numbers of any size. For a
/// duplicate key, the first value is used. A view that is valid as long as its parser exists. Not synchronized.
class DocumentObject {
public:
    /// The longest text that is parsed, in bytes: room for more than a million snapshots, and so for any real history.
    /// The parser needs several times the length of the text in memory.
    static constexpr std::size_t longestText = 512UL * 1024 * 1024;

    /// Parses `json`, a complete document whose top level is an object, and returns `decode(object)`. A byte order mark
    /// is allowed. If `decode` throws DocumentDecodingError and the text has numbers with a simpler spelling, `decode`
    /// is called again with those. Throws DocumentDecodingError if the text is not such a document or is too long, and
    /// whatever `decode` throws.
    template<typename Decode>
    static auto parse(std::string_view json, const Decode& decode) {
        if (json.size() > longestText) {
            throw DocumentDecodingError();
        }
        simdjson::dom::parser parser;
        try {
            return decode(top(parser, json));
        } catch (const DocumentDecodingError&) {
            // Not rewritten up front: nearly all documents spell their numbers simply and need no copy.
            const std::optional<std::string> plain = PlainNumbers::rewritten(json);
            if (!plain || plain->size() > longestText) {
                throw;
            }
            return decode(top(parser, *plain));
        }
    }

    std::string string(std::string_view key) const;
    /// Returns std::nullopt if the key is missing or null.
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
