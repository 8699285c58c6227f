#pragma once

#include <simdjson.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Strict reading of one JSON object of an engine document: a key that is missing, null, of another type or outside the
/// range of the asked type throws DocumentDecodingError. Keys that are not asked for are ignored, as long as a number
/// below them is one that the parser can hold: an integer of more than 64 bits, or a number beyond those of a double,
/// makes it refuse the whole document. Whole numbers count as integers only where they are written without a point or
/// an exponent. Of a key given twice the first counts. A view: valid while the parser that made it lives. Not
/// synchronised.
class DocumentObject {
public:
    /// Parses `json`, a whole document whose top level is an object, and hands the object to `decode`.
    /// Throws DocumentDecodingError where it is not one, and what `decode` throws.
    static void parse(std::string_view json, const std::function<void(const DocumentObject&)>& decode);

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

    simdjson::dom::object object_;
};
