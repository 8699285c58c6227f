#include "CatalogueTable.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <simdjson.h>

#include <string_view>

CatalogueTable CatalogueTable::read(const std::filesystem::path& path) {
    CatalogueTable table;
    simdjson::dom::parser parser;
    simdjson::dom::object object;
    if (const auto error = parser.load(path.string()).get(object)) {
        table.faults.push_back(path.string() + ": " + simdjson::error_message(error));
        return table;
    }
    for (const auto& [key, value] : object) {
        std::string_view text;
        if (value.get(text) != simdjson::SUCCESS) {
            table.faults.push_back(std::string(key) + " is no text");
            continue;
        }
        const auto utf16 = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        if (!table.texts.emplace(key, utf16).second) {
            table.faults.push_back(std::string(key) + " stands twice");
        }
    }
    return table;
}

std::filesystem::path CatalogueTable::pathOfLanguage(const std::string& locale) {
    return std::filesystem::path(AMBREL_STRING_TABLES) / (locale + ".lproj") / "Localizable.json";
}

const CatalogueTable& CatalogueTable::ofLanguage(const std::string& locale) {
    static std::map<std::string, CatalogueTable> tables;
    const auto found = tables.find(locale);
    return found != tables.end() ? found->second : tables.emplace(locale, read(pathOfLanguage(locale))).first->second;
}

std::vector<std::string> CatalogueTable::languages() {
    std::vector<std::string> result;
    for (const QString& identifier : AmbrelStrings::completeLocaleIdentifiers()) {
        result.push_back(identifier.toStdString());
    }
    return result;
}
