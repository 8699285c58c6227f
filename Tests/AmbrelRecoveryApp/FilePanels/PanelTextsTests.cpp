#include "AmbrelRecoveryApp/FilePanels/PanelTexts.h"

#include "../../AmbrelLocalization/TextFaults.h"
#include "AmbrelLocalization/AmbrelStrings.h"

#include <QString>
#include <gmock/gmock.h>

#include <set>
#include <utility>

using PanelTexts::Text;

namespace {

/// The words that a language has from English.
const std::set<std::pair<QString, Text>> loanwords = {
    {"de", Text::computer},
    {"it", Text::computer},
};

} // namespace

TEST(PanelTextsTest, existInEveryLanguageOfTheInterface) {
    for (const QString& language : AmbrelStrings::launchLocaleIdentifiers()) {
        for (int number = 0; number < PanelTexts::textCount; ++number) {
            SCOPED_TRACE(language.toStdString() + " " + std::to_string(number));
            const auto text = static_cast<Text>(number);
            const QString shown = PanelTexts::resolved(text, language);
            EXPECT_FALSE(shown.isEmpty());
            EXPECT_EQ(shown, shown.trimmed());
            const bool isEnglish = shown == PanelTexts::resolved(text, "en");
            EXPECT_EQ(isEnglish, language == u"en" || loanwords.contains({language, text}));
            const std::string locale = language.toStdString();
            EXPECT_THAT(textFaults(locale, shown), testing::IsEmpty()) << shown.toStdString();
            // No text of these is a name, so all of its letters are of the language.
            EXPECT_THAT(scripts(shown), testing::IsSubsetOf(scriptsOfLocale(locale))) << shown.toStdString();
        }
    }
}

TEST(PanelTextsTest, areEnglishInOtherLanguages) {
    EXPECT_EQ(PanelTexts::resolved(Text::home, "nl"), "Home");
}
