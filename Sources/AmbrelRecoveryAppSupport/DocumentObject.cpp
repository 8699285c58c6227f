#include "AmbrelRecoveryAppSupport/DocumentObject.h"

namespace {

/// Returns the value of a simdjson result, or throws if it is not a `Value`.
template<typename Value, typename Result>
Value required(Result result) {
    Value value;
    if (result.get(value) != simdjson::SUCCESS) {
        throw DocumentDecodingError();
    }
    return value;
}

} // namespace

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

std::string DocumentObject::string(std::string_view key) const {
    return std::string(required<std::string_view>(object_.at_key(key)));
}

std::optional<std::string> DocumentObject::optionalString(std::string_view key) const {
    simdjson::dom::element element;
    if (object_.at_key(key).get(element) != simdjson::SUCCESS || element.is_null()) {
        return std::nullopt;
    }
    return std::string(required<std::string_view>(element));
}

bool DocumentObject::boolean(std::string_view key) const {
    return required<bool>(object_.at_key(key));
}

std::int64_t DocumentObject::signedInteger(std::string_view key) const {
    return required<std::int64_t>(object_.at_key(key));
}

std::uint64_t DocumentObject::unsignedInteger(std::string_view key) const {
    return required<std::uint64_t>(object_.at_key(key));
}

DocumentObject DocumentObject::object(std::string_view key) const {
    return DocumentObject(required<simdjson::dom::object>(object_.at_key(key)));
}

std::vector<DocumentObject> DocumentObject::objects(std::string_view key) const {
    std::vector<DocumentObject> objects;
    for (const simdjson::dom::element element : required<simdjson::dom::array>(object_.at_key(key))) {
        objects.push_back(DocumentObject(required<simdjson::dom::object>(element)));
    }
    return objects;
}

std::vector<std::string> DocumentObject::strings(std::string_view key) const {
    std::vector<std::string> strings;
    for (const simdjson::dom::element element : required<simdjson::dom::array>(object_.at_key(key))) {
        strings.emplace_back(required<std::string_view>(element));
    }
    return strings;
}
