#include "AmbrelLocalization/AmbrelStrings.h"

#include "AmbrelLocalization/AmbrelInterfaceLanguagePreferenceStore.h"
#include "TestSupport.h"

#include <gmock/gmock.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

#include <spawn.h>
#include <sys/wait.h>

namespace {

using Language = AmbrelInterfaceLanguage;
using AmbrelStrings::localized;
using AmbrelStrings::resolved;

/// Another program of the product saves its choice in the user defaults that this program reads.
void saveInAnotherProcess(Language language) {
    const std::string identifier = language.id().toStdString();
    const char* const arguments[] = {AMBREL_LANGUAGE_SAVER, identifier.c_str(), nullptr};
    pid_t process = 0;
    ASSERT_EQ(
        ::posix_spawn(&process, AMBREL_LANGUAGE_SAVER, nullptr, nullptr, const_cast<char* const*>(arguments), environ),
        0);
    int status = -1;
    ASSERT_EQ(::waitpid(process, &status, 0), process);
    ASSERT_EQ(status, 0);
}

/// The functions of the process: on the tables beside the test program and on its own standard user defaults.
class AmbrelStringsTest : public testing::Test {
protected:
    AmbrelStringsTest() { variables_.set("LANG", "fr_CA.UTF-8"); }

    void store(Language language) {
        AmbrelInterfaceLanguagePreferenceStore(defaults_, AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey())
            .save(language);
    }

    ScopedLocaleVariables variables_;
    std::shared_ptr<AmbrelUserDefaults> defaults_ = emptyStandardUserDefaults();
};

TEST(CatalogueEntryTest, hasItsKeyAsItsDefaultValue) {
    constexpr LocalizedStringResource entry = AmbrelStrings::recoveryChoosePackageAction();
    EXPECT_EQ(entry.key(), "ambrel.recovery.choose-package.action");
    EXPECT_EQ(entry.defaultValue(), entry.key());
    EXPECT_EQ(entry, AmbrelStrings::recoveryChoosePackageAction());
    EXPECT_NE(entry, AmbrelStrings::recoveryChoosePackageBody());
}

TEST(CatalogueEntryTest, hasTheKeyOfItsMember) {
    EXPECT_EQ(AmbrelStrings::filesExportStart().key(), "ambrel.files-export.start");
    EXPECT_EQ(AmbrelStrings::brandDisplayName().key(), "ambrel.brand.display-name");
    EXPECT_EQ(AmbrelStrings::lockedActionFaceID().key(), "ambrel.locked.action.face-id");
    EXPECT_EQ(AmbrelStrings::recoveryAppCodeRejectedBody().key(), "ambrel.recovery.app-code.body");
    EXPECT_EQ(AmbrelStrings::viewerPositionFormat().key(), "ambrel.viewer.position-format");
    EXPECT_EQ(AmbrelStrings::shareStagingCancelled().key(), "ambrel.share.error.staging-cancelled");
}

TEST(InterfaceResourcesTest, haveEveryKeyOnceAndTheRecoveryGroupFirst) {
    const auto resources = AmbrelStrings::interfaceResources();
    EXPECT_EQ(resources.size(), 875U);
    std::set<std::string_view> keys;
    std::set<std::string_view> groups;
    for (const LocalizedStringResource& resource : resources) {
        EXPECT_TRUE(keys.insert(resource.key()).second) << resource.key();
        ASSERT_TRUE(resource.key().starts_with("ambrel.")) << resource.key();
        const std::string_view rest = resource.key().substr(7);
        groups.insert(rest.substr(0, rest.find('.')));
    }
    EXPECT_EQ(groups.size(), 33U);
    const auto isRecovery = [](const LocalizedStringResource& resource) {
        return resource.key().starts_with("ambrel.recovery.");
    };
    EXPECT_TRUE(std::ranges::is_partitioned(resources, isRecovery));
    EXPECT_EQ(std::ranges::count_if(resources, isRecovery), 97);
}

TEST_F(AmbrelStringsTest, areInTheSystemsLanguageIfNothingIsStored) {
    EXPECT_EQ(AmbrelStrings::currentInterfaceLanguage(), Language::system);
    EXPECT_EQ(localized(AmbrelStrings::genericCancel()), QStringLiteral("cancel in fr"));
}

TEST_F(AmbrelStringsTest, areInTheStoredLanguage) {
    for (const Language language : Language::selectableLanguages()) {
        store(language);
        EXPECT_EQ(AmbrelStrings::currentInterfaceLanguage(), language);
        EXPECT_EQ(localized(AmbrelStrings::genericCancel()), QStringLiteral("cancel in ") + language.id());
    }
    store(Language::system);
    EXPECT_EQ(localized(AmbrelStrings::genericCancel()), QStringLiteral("cancel in fr"));
}

TEST_F(AmbrelStringsTest, areInTheLanguageThatAnotherProcessSavedLast) {
    for (const Language language : Language::selectableLanguages()) {
        saveInAnotherProcess(language);
        EXPECT_EQ(localized(AmbrelStrings::genericCancel()), QStringLiteral("cancel in ") + language.id());
    }
    saveInAnotherProcess(Language::system);
    EXPECT_EQ(localized(AmbrelStrings::genericCancel()), QStringLiteral("cancel in fr"));
}

TEST_F(AmbrelStringsTest, areStoredInTheHomeFolderIfNoConfigurationFolderIsSet) {
    const TemporaryDirectory home;
    const ScopedEnvironment homeVariable("HOME", home.path());
    const ScopedEnvironment configuration("XDG_CONFIG_HOME", std::nullopt);
    saveInAnotherProcess(Language::german);
    EXPECT_EQ(TestFiles::read(home.path() / ".config" / "Ambrel" / "Recovery.conf"),
              "[General]\nambrel.interface-language.v1=de\n");
}

TEST_F(AmbrelStringsTest, areResolvedForAnExplicitIdentifier) {
    store(Language::german);
    EXPECT_EQ(resolved(AmbrelStrings::genericCancel(), QStringLiteral("ja")), QStringLiteral("cancel in ja"));
    EXPECT_EQ(resolved(AmbrelStrings::genericCancel(), QStringLiteral("xx")), QStringLiteral("cancel in en"));
    EXPECT_EQ(resolved(AmbrelStrings::genericCancel(), std::nullopt), QStringLiteral("cancel in de"));
    EXPECT_EQ(resolved(AmbrelStrings::genericClose(), QStringLiteral("de")), QStringLiteral("close in en"));
    EXPECT_EQ(resolved(AmbrelStrings::genericYes(), QStringLiteral("de")), QStringLiteral("ambrel.generic.yes"));
}

TEST_F(AmbrelStringsTest, useOnlyTheKeyOfAnEntry) {
    EXPECT_EQ(localized(LocalizedStringResource("ambrel.generic.cancel")), QStringLiteral("cancel in fr"));
    EXPECT_EQ(localized(LocalizedStringResource("no.such.key")), QStringLiteral("no.such.key"));
}

TEST_F(AmbrelStringsTest, formatInTheLocaleOfTheStoredLanguage) {
    variables_.set("LANG", "en_US.UTF-8");
    EXPECT_STREQ(AmbrelStrings::currentFormattingLocale().getName(), "en_US");
    store(Language::japanese);
    EXPECT_STREQ(AmbrelStrings::currentFormattingLocale().getName(), "ja");
    defaults_->setString(AmbrelInterfaceLanguagePreferenceStore::defaultStorageKey(), QStringLiteral("JA"));
    EXPECT_STREQ(AmbrelStrings::currentFormattingLocale().getName(), "en_US");
}

/// Everything of one screen that is written in digits.
QString everyNumber() {
    using namespace std::chrono_literals;
    const icu::Locale locale = AmbrelStrings::currentFormattingLocale();
    return QStringList(
               {AmbrelStrings::formattedNumber(1'234'567'890, locale), AmbrelStrings::formattedProgress(3, 10, locale),
                AmbrelStrings::formattedPercent(0.42, locale), AmbrelStrings::formattedFileSize(18'400'000'000, locale),
                AmbrelStrings::formattedDuration(90'061s, locale), AmbrelStrings::viewerPosition(3, 10),
                AmbrelStrings::formattedDateTime(std::chrono::sys_days(std::chrono::year(2026) / 6 / 14), locale)})
        .join(u'\n');
}

/// The zeros of the kinds of digits in a text.
std::set<char32_t> kindsOfDigits(const QString& text) {
    std::set<char32_t> zeros;
    for (const char32_t character : text.toStdU32String()) {
        if (const std::int32_t value = u_charDigitValue(static_cast<UChar32>(character)); value >= 0) {
            zeros.insert(character - static_cast<char32_t>(value));
        }
    }
    return zeros;
}

TEST_F(AmbrelStringsTest, haveDigitsOfOneKindOnAnArabicScreenInEveryRegion) {
    std::map<std::string, std::set<char32_t>> kinds;
    for (const char* const* region = icu::Locale::getISOCountries(); *region; ++region) {
        const std::string name = std::string("ar_") + *region + ".UTF-8";
        variables_.set("LANG", name.c_str());
        kinds[*region] = kindsOfDigits(everyNumber());
        EXPECT_EQ(kinds[*region].size(), 1U) << *region << ":\n" << everyNumber().toStdString();
    }
    EXPECT_THAT(kinds["EG"], testing::ElementsAre(U'٠'));
    EXPECT_THAT(kinds["MA"], testing::ElementsAre(U'0'));
}

TEST_F(AmbrelStringsTest, formatByTheSystemsTimeLocaleAlone) {
    const ScopedEnvironment numeric("LC_NUMERIC", "de_DE.UTF-8");
    variables_.set("LANG", "en_US.UTF-8");
    EXPECT_STREQ(AmbrelStrings::currentFormattingLocale().getName(), "en_US");
    variables_.set("LC_TIME", "en_GB.UTF-8");
    EXPECT_STREQ(AmbrelStrings::currentFormattingLocale().getName(), "en_GB");
    variables_.set("LC_ALL", "en_CA.UTF-8");
    EXPECT_STREQ(AmbrelStrings::currentFormattingLocale().getName(), "en_CA");
}

TEST_F(AmbrelStringsTest, fillTheViewersPositionInTheCurrentLanguage) {
    store(Language::german);
    EXPECT_EQ(AmbrelStrings::viewerPosition(3, 1234), QStringLiteral("de 1.234 > 3"));
    variables_.set("LANG", "ar_EG.UTF-8");
    store(Language::system);
    EXPECT_EQ(AmbrelStrings::viewerPosition(3, 12), QStringLiteral("ar ١٢ > ٣"));
    EXPECT_EQ(AmbrelStrings::viewerPosition(0, 0), QStringLiteral("ar ٠ > ٠"));
}

} // namespace
