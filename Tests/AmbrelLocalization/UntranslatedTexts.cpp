#include "UntranslatedTexts.h"

#include <simdjson.h>

#include <algorithm>
#include <string_view>

namespace {

std::set<std::string> texts(const simdjson::dom::array& array) {
    std::set<std::string> result;
    for (const simdjson::dom::element element : array) {
        result.emplace(std::string_view(element));
    }
    return result;
}

} // namespace

UntranslatedTexts UntranslatedTexts::read(const std::filesystem::path& path) {
    UntranslatedTexts result;
    simdjson::dom::parser parser;
    const simdjson::dom::array groups = parser.load(path.string());
    for (const simdjson::dom::object group : groups) {
        Group& added = result.groups.emplace_back();
        added.reason = std::string_view(group["reason"]);
        added.keys = texts(group["keys"]);
        simdjson::dom::array locales;
        if (group["locales"].get(locales) == simdjson::SUCCESS) {
            added.locales = texts(locales);
        }
    }
    return result;
}

bool UntranslatedTexts::contains(const std::string& locale, const std::string& key) const {
    return std::ranges::any_of(groups, [&](const Group& group) {
        return (group.locales.empty() || group.locales.contains(locale)) && group.keys.contains(key);
    });
}
