#include "AmbrelLocalization/StringCatalogue.h"

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/AmbrelUserDefaults.h"
#include "AmbrelLocalization/resource_bundle_accessor.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

using Language = AmbrelInterfaceLanguage;

/// A catalogue on tables that the test writes.
class StringCatalogueTest : public testing::Test {
protected:
    StringCatalogueTest() {
        std::filesystem::create_directory(folder_.path() / "Resources");
        writeTable("en", R"({"both": "English both", "english": "English only"})");
        writeTable("de", R"({"both": "Deutsch"})");
        writeTable("fr", R"({"both": "Français"})");
        writeTable("zh-Hant", R"({"both": "中文"})");
        variables_.set("LANG", "fr_CA.UTF-8");
    }

    std::filesystem::path table(const std::string& locale) const {
        return std::filesystem::path("Resources") / ResourceBundleAccessor::bundleName / (locale + ".lproj") /
               "Localizable.json";
    }

    void writeTable(const std::string& locale, std::string_view bytes) { writeInPlace(folder_ / table(locale), bytes); }

    void store(Language language) { preferences_.save(language); }

    QString text(std::string_view key) const { return catalogue().text(key); }

    QString text(std::string_view key, const char* locale) const {
        return catalogue().text(key, QString::fromUtf8(locale));
    }

    /// The same one throughout a test, made at its first use.
    const StringCatalogue& catalogue() const {
        if (!catalogue_) {
            catalogue_ = std::make_unique<StringCatalogue>(ApplicationBundle(folder_.path()), preferences_);
        }
        return *catalogue_;
    }

    TemporaryDirectory folder_;
    ScopedLocaleVariables variables_;
    std::shared_ptr<AmbrelUserDefaults> defaults_ = std::make_shared<AmbrelUserDefaults>(folder_.path() / "Defaults");
    AmbrelInterfaceLanguagePreferenceStore preferences_{defaults_,
                                                        AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey()};

private:
    mutable std::unique_ptr<StringCatalogue> catalogue_;
};

TEST_F(StringCatalogueTest, followsTheSystemIfNothingIsStored) {
    EXPECT_EQ(text("both"), QStringLiteral("Français"));
    variables_.set("LANG", "zh_TW.UTF-8");
    EXPECT_EQ(text("both"), QStringLiteral("中文"));
    variables_.set("LANG", "nl_NL.UTF-8");
    EXPECT_EQ(text("both"), QStringLiteral("English both"));
}

TEST_F(StringCatalogueTest, followsTheStoredLanguageWhateverTheSystemSays) {
    store(Language::german);
    EXPECT_EQ(text("both"), QStringLiteral("Deutsch"));
    variables_.set("LANGUAGE", "zh_TW:en");
    EXPECT_EQ(text("both"), QStringLiteral("Deutsch"));
}

TEST_F(StringCatalogueTest, treatsAStoredSystemLanguageLikeNothingStored) {
    store(Language::german);
    EXPECT_EQ(text("both"), QStringLiteral("Deutsch"));
    store(Language::system);
    EXPECT_EQ(text("both"), QStringLiteral("Français"));
}

TEST_F(StringCatalogueTest, treatsAnUnknownStoredTextLikeNothingStored) {
    defaults_->setString(preferences_.storageKey(), QStringLiteral("DE"));
    EXPECT_EQ(text("both"), QStringLiteral("Français"));
}

TEST_F(StringCatalogueTest, matchesAnExplicitIdentifierExactly) {
    store(Language::german);
    EXPECT_EQ(text("both", "fr"), QStringLiteral("Français"));
    EXPECT_EQ(text("both", "en"), QStringLiteral("English both"));
    for (const char* other : {"xx", "pt", "en-GB", "FR", "", "system", "fr ", "../fr", "zh_Hant", "zh"}) {
        EXPECT_EQ(text("both", other), QStringLiteral("English both")) << other;
    }
    EXPECT_EQ(catalogue().text("both", QString(100'000, u'x')), QStringLiteral("English both"));
}

TEST_F(StringCatalogueTest, fallsBackToEnglishAndThenToTheKey) {
    EXPECT_EQ(text("english", "de"), QStringLiteral("English only"));
    EXPECT_EQ(text("nowhere", "de"), QStringLiteral("nowhere"));
    EXPECT_EQ(text("nowhere", "en"), QStringLiteral("nowhere"));
    EXPECT_EQ(text("nowhere", "xx"), QStringLiteral("nowhere"));
    EXPECT_EQ(text("ambrel.generic.cancel", "de"), QStringLiteral("ambrel.generic.cancel"));
}

TEST_F(StringCatalogueTest, fallsBackToEnglishForAMissingTable) {
    EXPECT_EQ(text("both", "ja"), QStringLiteral("English both"));
    store(Language::japanese);
    EXPECT_EQ(text("both"), QStringLiteral("English both"));
}

TEST_F(StringCatalogueTest, fallsBackToEnglishForADamagedTable) {
    for (const std::string_view bytes : {"", "{", "[]", "{\"both\": 1}", "{\"both\": \"\"}", "{\"both\": \"x\xFF\"}",
                                         "{\"both\": \"x\" \"y\"}", "{\"both\": null}"}) {
        writeTable("de", bytes);
        EXPECT_EQ(text("both", "de"), QStringLiteral("English both")) << bytes;
    }
    writeTable("de", R"({"both": "geheilt"})");
    EXPECT_EQ(text("both", "de"), QStringLiteral("geheilt"));
}

TEST_F(StringCatalogueTest, fallsBackToTheKeyIfEnglishIsDamagedToo) {
    writeTable("en", "{");
    EXPECT_EQ(text("english", "de"), QStringLiteral("english"));
    EXPECT_EQ(text("both", "de"), QStringLiteral("Deutsch"));
    std::filesystem::remove(folder_.path() / table("en"));
    EXPECT_EQ(text("english", "de"), QStringLiteral("english"));
}

TEST_F(StringCatalogueTest, fallsBackIfTheTableIsAFolderOrUnreadable) {
    std::filesystem::remove(folder_.path() / table("de"));
    std::filesystem::create_directory(folder_.path() / table("de"));
    EXPECT_EQ(text("both", "de"), QStringLiteral("English both"));

    ASSERT_EQ(::chmod(folder_.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod((folder_.path() / table("fr")).c_str(), 0), 0);
    const ScopedOrdinaryUser user;
    EXPECT_EQ(text("both", "fr"), QStringLiteral("English both"));
}

TEST_F(StringCatalogueTest, noticesAReplacedTable) {
    EXPECT_EQ(text("both", "de"), QStringLiteral("Deutsch"));
    writeTable("de", R"({"both": "Neues D"})");
    EXPECT_EQ(text("both", "de"), QStringLiteral("Neues D"));
}

TEST_F(StringCatalogueTest, keepsItsTextsIfTheApplicationIsMovedAway) {
    EXPECT_EQ(text("both", "de"), QStringLiteral("Deutsch"));
    const TemporaryDirectory elsewhere;
    std::filesystem::rename(folder_.path() / "Resources", elsewhere / "Resources");
    EXPECT_EQ(text("both", "de"), QStringLiteral("Deutsch"));
    EXPECT_EQ(text("english", "de"), QStringLiteral("English only"));
    EXPECT_EQ(text("both", "fr"), QStringLiteral("English both")) << "which was not shown before";
    EXPECT_EQ(text("ambrel.brand.display-name", "de"), QStringLiteral("ambrel.brand.display-name"))
        << "no other bundle stands in";
    writeTable("de", R"({"both": "Neu)");
    EXPECT_EQ(text("both", "de"), QStringLiteral("Deutsch")) << "an update has begun to put it back";
    writeTable("de", R"({"both": "Neues D"})");
    EXPECT_EQ(text("both", "de"), QStringLiteral("Neues D")) << "an update has put it back";
}

// The program's own folder holds the bundle only among its resources, so the copy of the build stands in.
TEST_F(StringCatalogueTest, usesTheModulesBundleIfTheApplicationHasNone) {
    std::filesystem::remove_all(folder_.path() / "Resources" / ResourceBundleAccessor::bundleName);
    EXPECT_EQ(text("ambrel.brand.display-name", "en"), QStringLiteral("Ambrel"));
    EXPECT_EQ(text("both", "de"), QStringLiteral("both"));
}

TEST_F(StringCatalogueTest, usesTheModulesBundleIfTheApplicationHasNoResources) {
    std::filesystem::remove_all(folder_.path() / "Resources");
    EXPECT_EQ(text("ambrel.brand.display-name", "en"), QStringLiteral("Ambrel"));
}

} // namespace
