// Checks the product's string tables as their translators wrote them.

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AmbrelLocalization/IcuText.h"
#include "AmbrelLocalization/PrintfStyleFormat.h"
#include "CatalogueTable.h"
#include "TextFaults.h"
#include "UntranslatedTexts.h"

#include <QRegularExpression>
#include <gmock/gmock.h>
#include <unicode/ucnv.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using PrintfStyleFormat::Kind;

const CatalogueTable& table(const std::string& locale) {
    return CatalogueTable::ofLanguage(locale);
}

std::optional<QString> text(const std::string& locale, const std::string& key) {
    const auto found = table(locale).texts.find(key);
    return found == table(locale).texts.end() ? std::nullopt : std::optional(found->second);
}

const UntranslatedTexts& untranslatedTexts() {
    static const UntranslatedTexts texts = UntranslatedTexts::read(AMBREL_UNTRANSLATED_TEXTS);
    return texts;
}

using PlaceholderUse = std::multiset<std::pair<std::size_t, Kind>>;

/// Which values a text takes, and as what; percent signs are no values.
PlaceholderUse placeholderUse(const QString& text) {
    PlaceholderUse result;
    for (const auto& placeholder : PrintfStyleFormat::placeholders(text)) {
        if (placeholder.kind != Kind::percentSign) {
            result.emplace(placeholder.value, placeholder.kind);
        }
    }
    return result;
}

/// The texts that stand between the quotation marks of a language, without the no-break spaces inside.
QStringList quotedTexts(const QString& text) {
    static const QRegularExpression quotation(QStringLiteral("[“„«「‘]\\x{A0}?(.+?)\\x{A0}?[”“»」’]"),
                                              QRegularExpression::UseUnicodePropertiesOption);
    QStringList result;
    for (auto found = quotation.globalMatch(text); found.hasNext();) {
        result.append(found.next().captured(1));
    }
    return result;
}

/// How a text ends, quotation marks not counted: 0 for a letter or a digit.
char ending(const QString& text) {
    static const QString marks = QStringLiteral(".。?？؟…:：");
    static constexpr std::string_view meanings = "..???~::";
    QString rest = text;
    while (QStringLiteral("”“»」’").contains(rest.back())) {
        rest.chop(1);
    }
    const qsizetype mark = marks.indexOf(rest.back());
    return mark < 0 ? '\0' : meanings[static_cast<std::size_t>(mark)];
}

/// The Chinese characters of `text` that the national character set `encoding` does not have.
QString charactersOutside(const char* encoding, const QString& text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(ucnv_open(encoding, &status), ucnv_close);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    EXPECT_TRUE(U_SUCCESS(status)) << encoding;
    QString result;
    for (const char32_t codePoint : text.toStdU32String()) {
        UErrorCode conversion = U_ZERO_ERROR;
        if (uscript_getScript(static_cast<UChar32>(codePoint), &conversion) != USCRIPT_HAN) {
            continue;
        }
        const QString character = QString::fromUcs4(&codePoint, 1);
        char bytes[8];
        ucnv_fromUChars(converter.get(), bytes, sizeof bytes, QStringView(character).utf16(),
                        static_cast<std::int32_t>(character.size()), &conversion);
        if (U_FAILURE(conversion)) {
            result += character;
        }
    }
    return result;
}

TEST(CatalogueTest, hasATableForEveryLanguageAndForNoOther) {
    std::set<std::string> folders;
    for (const auto& entry : std::filesystem::directory_iterator(AMBREL_STRING_TABLES)) {
        folders.insert(entry.path().filename().string());
    }
    std::set<std::string> expected;
    for (const std::string& locale : CatalogueTable::languages()) {
        expected.insert(locale + ".lproj");
        EXPECT_TRUE(std::filesystem::is_regular_file(CatalogueTable::pathOfLanguage(locale)))
            << "no table for " << locale;
    }
    EXPECT_EQ(folders, expected);
}

TEST(CatalogueTest, listsOnlyTextsThatExistAndAreUntranslated) {
    for (const UntranslatedTexts::Group& group : untranslatedTexts().groups) {
        EXPECT_FALSE(group.reason.empty());
        for (const std::string& key : group.keys) {
            EXPECT_TRUE(table("en").texts.contains(key)) << key;
            for (const std::string& locale : group.locales) {
                EXPECT_EQ(text(locale, key), text("en", key))
                    << key << " is translated in " << locale << " and must not be listed";
            }
        }
    }
}

/// The tests of one table, those of the translations compared to English.
class TableTest : public testing::TestWithParam<std::string> {
protected:
    const std::string& locale() const { return GetParam(); }
    const std::map<std::string, QString>& texts() const { return table(locale()).texts; }
    const std::map<std::string, QString>& english() const { return table("en").texts; }
};

TEST_P(TableTest, isOneFlatJsonObjectOfTexts) {
    EXPECT_TRUE(table(locale()).faults.empty());
    for (const std::string& fault : table(locale()).faults) {
        ADD_FAILURE() << fault;
    }
}

TEST_P(TableTest, hasEveryKeyAndNoOther) {
    std::set<std::string> expected;
    std::set<std::string> missing;
    for (const LocalizedStringResource& resource : AmbrelStrings::interfaceResources()) {
        const std::string& key = *expected.emplace(resource.key()).first;
        if (!texts().contains(key)) {
            missing.insert(key);
        }
    }
    EXPECT_EQ(missing, std::set<std::string>());
    for (const auto& [key, value] : texts()) {
        EXPECT_TRUE(expected.contains(key)) << "too many: " << key;
    }
}

TEST_P(TableTest, hasNoTextThatIsEmptyPaddedOrItsKey) {
    for (const auto& [key, text] : texts()) {
        EXPECT_FALSE(text.isEmpty()) << key;
        EXPECT_EQ(text, text.trimmed()) << key;
        EXPECT_NE(text, QString::fromStdString(key)) << key;
        EXPECT_FALSE(text.contains(QChar::ReplacementCharacter)) << key;
    }
}

TEST_P(TableTest, hasThePlaceholdersOfEnglish) {
    for (const auto& [key, text] : texts()) {
        const auto source = english().find(key);
        if (source == english().end()) {
            continue;
        }
        EXPECT_EQ(placeholderUse(text), placeholderUse(source->second)) << key << ": " << text.toStdString();
    }
}

TEST_P(TableTest, hasLettersOfItsLanguage) {
    const std::set<UScriptCode> own = scriptsOfLocale(locale());
    for (const auto& [key, text] : texts()) {
        const std::set<UScriptCode> used = scripts(text);
        const bool hasOwn = std::ranges::any_of(used, [&own](UScriptCode script) { return own.contains(script); });
        EXPECT_TRUE(hasOwn || used.empty() || untranslatedTexts().contains(locale(), key))
            << key << " has no letter of its language: " << text.toStdString();
    }
}

TEST_P(TableTest, keepsSimplifiedAndTraditionalChineseApart) {
    const std::map<std::string, const char*> characterSets = {{"zh-Hans", "GB2312"}, {"zh-Hant", "Big5"}};
    const auto characterSet = characterSets.find(locale());
    if (characterSet == characterSets.end()) {
        // Japanese has both forms, and the other languages have neither.
        const bool hasHan =
            std::ranges::any_of(texts(), [](const auto& entry) { return scripts(entry.second).contains(USCRIPT_HAN); });
        EXPECT_EQ(hasHan, locale() == "ja" && !texts().empty());
        return;
    }
    for (const auto& [key, text] : texts()) {
        EXPECT_TRUE(charactersOutside(characterSet->second, text).isEmpty())
            << key << " has " << charactersOutside(characterSet->second, text).toStdString() << " in "
            << text.toStdString();
    }
}

TEST_P(TableTest, isTranslatedOrListedWithAReason) {
    if (locale() == "en") {
        return;
    }
    for (const auto& [key, text] : texts()) {
        const auto source = english().find(key);
        EXPECT_TRUE(source == english().end() || text != source->second || untranslatedTexts().contains(locale(), key))
            << key << " is the English text: " << text.toStdString();
    }
}

TEST_P(TableTest, isTypesetByTheRulesOfItsLanguage) {
    for (const auto& [key, text] : texts()) {
        EXPECT_THAT(textFaults(locale(), text), testing::IsEmpty()) << key << ": " << text.toStdString();
    }
}

TEST_P(TableTest, endsEveryTextAsEnglishDoes) {
    // “How”, “where” or “what” begins the title in English; in Turkish it is a question.
    static const std::set<std::string> turkishQuestions = {
        "ambrel.help.local-encryption.title",
        "ambrel.help.where-bytes-live.title",
        "ambrel.help.backup-status.title",
        "ambrel.help.rolling-verification.title",
    };
    for (const auto& [key, text] : texts()) {
        const char expected = locale() == "tr" && turkishQuestions.contains(key) ? '?' : ending(english().at(key));
        EXPECT_EQ(ending(text), expected) << key << ": " << text.toStdString();
    }
}

TEST_P(TableTest, quotesNamesExactly) {
    const auto named = [this](const char* key) { return texts().at(std::string("ambrel.") + key); };
    const auto quotes = [&](const char* key) { return quotedTexts(named(key)); };
    EXPECT_TRUE(quotes("help.set-up-backup.body").contains(named("backup.setup.create.action")));
    EXPECT_TRUE(quotes("help.move-to-new-iphone.body").contains(named("recovery.restore-existing.action")));
    const QStringList states = quotes("help.backup-status.body");
    ASSERT_GE(states.size(), 3);
    EXPECT_EQ(states[0], named("backup.destination.written"));
    EXPECT_EQ(states[1], named("backup.destination.protected"));
    // The second part of a title, which begins with a capital where it stands alone.
    EXPECT_TRUE(named("backup.status.restore-tested.title").endsWith(states[2], Qt::CaseInsensitive))
        << states[2].toStdString();
    // What else is quoted there is the name of the section, or again one of the states.
    for (const QString& quoted : quotes("help.set-up-backup.body") + quotes("help.move-to-new-iphone.body") +
                                     quotes("help.rolling-verification.body") + states) {
        EXPECT_TRUE(quoted == states[2] || quoted == named("navigation.backup") ||
                    quoted == named("backup.setup.create.action") ||
                    quoted == named("recovery.restore-existing.action") ||
                    quoted == named("backup.destination.written") || quoted == named("backup.destination.protected"))
            << quoted.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, TableTest, testing::ValuesIn(CatalogueTable::languages()),
                         [](const auto& parameter) {
                             std::string name = parameter.param;
                             std::erase(name, '-');
                             return name;
                         });

} // namespace
