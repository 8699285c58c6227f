#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

/// The texts that may be the same as the English ones, from a JSON list of groups, each with its reason.
struct UntranslatedTexts {
    struct Group {
        std::string reason;
        /// The languages that the group counts for; empty for all.
        std::set<std::string> locales;
        std::set<std::string> keys;
    };

    std::vector<Group> groups;

    static UntranslatedTexts read(const std::filesystem::path& path);

    bool contains(const std::string& locale, const std::string& key) const;
};
