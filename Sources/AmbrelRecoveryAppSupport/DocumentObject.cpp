#include "AmbrelRecoveryAppSupport/DocumentObject.h"

DocumentObject DocumentObject::top(simdjson::dom::parser& parser, std::string_view json) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (json.starts_with(byteOrderMark)) {
        json.remove_prefix(byteOrderMark.size());
    }
    // The parser copies its input even if it is empty, and some versions skip a byte order mark themselves, which would
    // be a second one here.
    if (json.empty() || json.starts_with(byteOrderMark)) {
        throw DocumentDecodingError();
    }
    return DocumentObject(required<simdjson::dom::object>(parser.parse(json.data(), json.size())));
}

std::string DocumentObject::string(std::string_view key) {
    return std::string(required<std::string_view>(at(key)));
}

std::optional<std::string> DocumentObject::optionalString(std::string_view key) {
    simdjson::dom::element element;
    if (at(key).get(element) != simdjson::SUCCESS || element.is_null()) {
        return std::nullopt;
    }
    return std::string(required<std::string_view>(element));
}

bool DocumentObject::boolean(std::string_view key) {
    return required<bool>(at(key));
}

std::int64_t DocumentObject::signedInteger(std::string_view key) {
    return required<std::int64_t>(at(key));
}

std::uint64_t DocumentObject::unsignedInteger(std::string_view key) {
    return required<std::uint64_t>(at(key));
}

DocumentObject DocumentObject::object(std::string_view key) {
    return DocumentObject(required<simdjson::dom::object>(at(key)));
}

std::vector<std::string> DocumentObject::strings(std::string_view key) {
    std::vector<std::string> strings;
    for (const simdjson::dom::element element : required<simdjson::dom::array>(at(key))) {
        strings.emplace_back(required<std::string_view>(element));
    }
    return strings;
}

simdjson::simdjson_result<simdjson::dom::element> DocumentObject::at(std::string_view key) {
    // A key that has not been requested is not among those before next_, so this is the first of its name.
    if (next_ != end_ && next_.key_equals(key)) {
        return (next_++).value();
    }
    return object_.at_key(key);
}
