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

} // namespace
