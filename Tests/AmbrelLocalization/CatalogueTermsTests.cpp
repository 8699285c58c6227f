// Checks that the texts of each language use its terms.

#include "AmbrelLocalization/AmbrelStrings.h"
#include "AvoidedTerms.h"
#include "CatalogueTable.h"
#include "TextsOfSeveralMeanings.h"

#include <QRegularExpression>
#include <gmock/gmock.h>

#include <map>
#include <set>
#include <string>

namespace {

using testing::IsEmpty;

/// Whether a text of one word has the form of a gender in its language, as an adjective or a participle has.
bool hasGender(const std::string& locale, const QString& text) {
    static const std::map<std::string, const char*> forms = {
        {"es", "(?<!nd)[oa]s?"},
        {"fr", "(é|ée|et|ète|[iu]|[iu]e|it|ite)s?"},
        {"it", "(?<!nd)[oa]"},
        {"pl", "[nt][yae]"},
        {"pt-BR", "(?<!nd)[oa]s?"},
        {"ru", "(ый|ий|ая|ое|[аеё]н|[ае]на)"},
        {"ar", "ة"},
    };
    const auto form = forms.find(locale);
    return form != forms.end() &&
           QRegularExpression(QStringLiteral("^[\\p{L}\\p{M}]+%1$").arg(QString::fromUtf8(form->second)),
                              QRegularExpression::UseUnicodePropertiesOption)
               .match(text)
               .hasMatch();
}

class CatalogueTermsTest : public testing::TestWithParam<std::string> {
protected:
    const std::string& locale() const { return GetParam(); }
    const std::map<std::string, QString>& texts() const { return CatalogueTable::ofLanguage(locale()).texts; }
    const std::map<std::string, QString>& english() const { return CatalogueTable::ofLanguage("en").texts; }
};

TEST_P(CatalogueTermsTest, hasNoTermThatItsPageAvoids) {
    const QStringList avoided = avoidedTerms(locale());
    EXPECT_NE(avoided.isEmpty(), locale() != "en") << "the page of every translation lists some, in three columns";
    for (const auto& [key, text] : texts()) {
        EXPECT_THAT(avoidedTermsIn(text, avoided), IsEmpty()) << key << ": " << text.toStdString();
    }
}

TEST_P(CatalogueTermsTest, translatesTheSameTextInTheSameWay) {
    std::map<QString, std::set<QString>> translations;
    for (const auto& [key, text] : texts()) {
        if (!textsOfSeveralMeanings.contains(english().at(key))) {
            translations[english().at(key)].insert(text);
        }
    }
    for (const auto& [source, all] : translations) {
        EXPECT_EQ(all.size(), 1U) << source.toStdString() << ": " << testing::PrintToString(all);
    }
}

// A sentence around a number would need plural forms, which the catalogue does not have.
TEST_P(CatalogueTermsTest, putsNumbersAtTheEndOfALabel) {
    static const std::set<std::string> ordinals = {"ambrel.recovery.snapshot.ordinal",
                                                   "ambrel.backup.setup.word-prompt.format"};
    static const QRegularExpression label(QStringLiteral("^[^%]+[:：][^%:：]*%lld$"));
    for (const auto& [key, text] : texts()) {
        if (text.contains(QStringLiteral("%lld")) && !ordinals.contains(key)) {
            EXPECT_TRUE(label.match(text).hasMatch()) << key << ": " << text.toStdString();
        }
    }
}

// The same value stands beside labels of different genders.
TEST_P(CatalogueTermsTest, hasValuesWithoutGender) {
    for (const auto& [key, text] : texts()) {
        const bool isValue = key.starts_with("ambrel.backup.value.");
        EXPECT_FALSE(isValue && hasGender(locale(), text)) << key << ": " << text.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, CatalogueTermsTest, testing::ValuesIn(CatalogueTable::languages()),
                         [](const auto& parameter) {
                             std::string name = parameter.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST(AvoidedTermsTest, areFoundInAnyCaseAndAnywhere) {
    const QStringList avoided = {QStringLiteral("Konflikt"), QStringLiteral("läuft …")};
    EXPECT_EQ(avoidedTermsIn(QStringLiteral("Ein Backupkonflikt"), avoided), QStringList(QStringLiteral("Konflikt")));
    EXPECT_THAT(avoidedTermsIn(QStringLiteral("Zwei Verläufe"), avoided), IsEmpty());
}

TEST(GenderTest, isSeenInOneWord) {
    const std::map<std::string, QString> gendered = {
        {"es", "Confirmado"},    {"fr", "Confirmée"},   {"it", "Confermata"}, {"pl", "Zweryfikowana"},
        {"pt-BR", "Confirmado"}, {"ru", "Подтверждён"}, {"ar", "مؤكَّدة"}};
    for (const auto& [locale, text] : gendered) {
        EXPECT_TRUE(hasGender(locale, text)) << text.toStdString();
        EXPECT_FALSE(hasGender("en", text));
    }
    EXPECT_FALSE(hasGender("pt-BR", "Aguardando"));
    EXPECT_FALSE(hasGender("pl", "Potwierdzono"));
}

} // namespace
