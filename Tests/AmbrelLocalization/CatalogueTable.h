#pragma once

#include <QString>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// One language's table as it stands in its file, read strictly: nothing in it is passed over.
struct CatalogueTable {
    /// The texts by key.
    std::map<std::string, QString> texts;

    /// What is wrong with the file's form: no JSON object, a key that stands twice, a value that is no text.
    std::vector<std::string> faults;

    static CatalogueTable read(const std::filesystem::path& path);

    /// The product's table of a language, read once.
    static const CatalogueTable& ofLanguage(const std::string& locale);

    /// Where the product's table of a language lies.
    static std::filesystem::path pathOfLanguage(const std::string& locale);

    /// The languages that the product has tables for.
    static std::vector<std::string> languages();
};
