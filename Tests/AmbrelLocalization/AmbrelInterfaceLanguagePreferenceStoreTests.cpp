#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"

#include "AmbrelLocalization/AmbrelUserDefaults.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

using Language = AmbrelInterfaceLanguage;

class AmbrelInterfaceLanguagePreferenceStoreTest : public testing::Test {
protected:
    TemporaryDirectory folder_;
    std::shared_ptr<AmbrelUserDefaults> defaults_ =
        std::make_shared<AmbrelUserDefaults>(folder_.path() / "Defaults.conf");
    AmbrelInterfaceLanguagePreferenceStore store_{defaults_,
                                                  AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey()};
};

TEST_F(AmbrelInterfaceLanguagePreferenceStoreTest, hasTheGivenDefaultsAndTheStandardKey) {
    EXPECT_EQ(store_.userDefaults(), defaults_);
    EXPECT_EQ(store_.storageKey(), QStringLiteral("ambrel.interface-language.v1"));
}

TEST_F(AmbrelInterfaceLanguagePreferenceStoreTest, loadsSystemIfNothingIsStored) {
    EXPECT_EQ(store_.load(), Language::system);
    EXPECT_FALSE(std::filesystem::exists(defaults_->path())) << "loading must not write";
}

TEST_F(AmbrelInterfaceLanguagePreferenceStoreTest, loadsWhatItSaved) {
    for (const Language language : Language::allCases()) {
        store_.save(language);
        EXPECT_EQ(store_.load(), language);
        EXPECT_EQ(defaults_->string(store_.storageKey()), language.id());
    }
}

TEST_F(AmbrelInterfaceLanguagePreferenceStoreTest, storesSystemAsText) {
    store_.save(Language::german);
    store_.save(Language::system);
    EXPECT_EQ(defaults_->string(store_.storageKey()), QStringLiteral("system"));
    EXPECT_EQ(store_.load(), Language::system);
}

TEST_F(AmbrelInterfaceLanguagePreferenceStoreTest, loadsSystemForUnknownTexts) {
    for (const char* text : {"EN", "zh_Hant", "", "klingon", "de ", "pt-br"}) {
        defaults_->setString(store_.storageKey(), QString::fromUtf8(text));
        EXPECT_EQ(store_.load(), Language::system) << text;
    }
}

TEST_F(AmbrelInterfaceLanguagePreferenceStoreTest, keepsChoicesUnderDifferentKeysApart) {
    AmbrelInterfaceLanguagePreferenceStore other(defaults_, QStringLiteral("another.key"));
    store_.save(Language::polish);
    other.save(Language::korean);
    EXPECT_EQ(store_.load(), Language::polish);
    EXPECT_EQ(other.load(), Language::korean);
}

} // namespace
