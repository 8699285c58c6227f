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
/// duplicate key, the first value is used. A view that is valid as long as its parser exists. Request no key twice, and
/// all in the order in which engines write them: that is the fastest. Not synchronized.
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

    std::string string(std::string_view key);
    /// Returns std::nullopt if the key is missing or null.
    std::optional<std::string> optionalString(std::string_view key);
    bool boolean(std::string_view key);
    std::int64_t signedInteger(std::string_view key);
    std::uint64_t unsignedInteger(std::string_view key);
    DocumentObject object(std::string_view key);
    std::vector<std::string> strings(std::string_view key);

    /// Returns `decode(object)` for each object of an array.
    template<typename Decode>
    auto objects(std::string_view key, const Decode& decode) {
        const auto array = required<simdjson::dom::array>(at(key));
        std::vector<decltype(decode(*this))> values;
        values.reserve(array.size());
        for (const simdjson::dom::element element : array) {
            values.push_back(decode(DocumentObject(required<simdjson::dom::object>(element))));
        }
        return values;
    }

private:
    explicit DocumentObject(simdjson::dom::object object) : object_(object) {}

    static DocumentObject top(simdjson::dom::parser& parser, std::string_view json);

    /// Returns the value of a simdjson result, or throws if it is not a `Value`.
    template<typename Value, typename Result>
    static Value required(const Result& result) {
        Value value;
        if (result.get(value) != simdjson::SUCCESS) {
            throw DocumentDecodingError();
        }
        return value;
    }

    simdjson::simdjson_result<simdjson::dom::element> at(std::string_view key);

    simdjson::dom::object object_;
    simdjson::dom::object::iterator end_ = object_.end();
    /// Every key before this one has been requested.
    simdjson::dom::object::iterator next_ = object_.begin();
};
