#include "AmbrelLocalization/AmbrelStrings.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

namespace {

const std::map<std::string, std::string> memberOfKey = {
#define AMBREL_STRING(member, key) {key, #member},
#include "AmbrelLocalization/CatalogueKeys.inc"
#undef AMBREL_STRING
};

const std::map<std::string, std::string> memberNamedOtherwise = {
#define AMBREL_STRING(member, key) {key, #member},
#include "MembersNamedOtherwise.inc"
#undef AMBREL_STRING
};

/// The lower camel case of what stands behind "ambrel.", in words that end at a full stop or a hyphen.
std::string nameThatFollowsFrom(const std::string& key) {
    std::string name;
    bool startsWord = false;
    for (const char character : key.substr(std::string_view("ambrel.").size())) {
        const bool isBetweenWords = character == '.' || character == '-';
        if (!isBetweenWords) {
            const bool isRaised = startsWord && character >= 'a' && character <= 'z';
            name += isRaised ? static_cast<char>(character - 'a' + 'A') : character;
        }
        startsWord = isBetweenWords;
    }
    return name;
}

TEST(CatalogueKeysTest, haveMembersNamedByTheRuleOrListedAsExceptions) {
    for (const auto& [key, member] : memberOfKey) {
        const auto listed = memberNamedOtherwise.find(key);
        EXPECT_EQ(member, listed == memberNamedOtherwise.end() ? nameThatFollowsFrom(key) : listed->second) << key;
    }
    for (const auto& [key, member] : memberNamedOtherwise) {
        EXPECT_TRUE(memberOfKey.contains(key)) << key;
        EXPECT_NE(member, nameThatFollowsFrom(key)) << key << " is named by the rule and must not be listed";
    }
}

TEST(CatalogueKeysTest, areInGroupsOfTheExpectedSizes) {
    const std::map<std::string_view, int> expected = {
        {"recovery", 97},
        {"brand", 1},
        {"privacy", 3},
        {"locked", 17},
        {"navigation", 4},
        {"onboarding", 16},
        {"setup", 5},
        {"library", 55},
        {"albums", 31},
        {"selection", 19},
        {"album", 5},
        {"backup", 185},
        {"settings", 52},
        {"support-bundle", 31},
        {"help", 34},
        {"about", 14},
        {"library-deletion", 26},
        {"notification", 7},
        {"separate-library", 3},
        {"generic", 6},
        {"guided-photos-deletion", 28},
        {"details", 42},
        {"media-import", 1},
        {"photos-import", 21},
        {"files-import", 42},
        {"files-export", 40},
        {"photos-export", 39},
        {"share-export", 18},
        {"recovery-required", 2},
        {"share", 4},
        {"share-inbox", 6},
        {"share-import", 10},
        {"viewer", 11},
    };
    std::map<std::string_view, int> sizes;
    for (const LocalizedStringResource& resource : AmbrelStrings::interfaceResources()) {
        const std::string_view rest = resource.key().substr(std::string_view("ambrel.").size());
        ++sizes[rest.substr(0, rest.find('.'))];
    }
    EXPECT_EQ(sizes, expected);
}

} // namespace
