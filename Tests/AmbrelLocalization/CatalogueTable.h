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
};
