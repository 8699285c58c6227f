#include "../ScreensTestSupport.h"
#include "AmbrelLocalization/AmbrelStrings.h"
#include "ExpectWholeTexts.h"

#include <gtest/gtest.h>

namespace {

class ScreenLayoutTest : public testing::TestWithParam<SystemLanguage> {};

TEST_P(ScreenLayoutTest, everyTextIsShownInFullAtTheSmallestSize) {
    const std::string texts = expectWholeTexts(GetParam());
    const ScopedLanguage language(GetParam().tag, GetParam().locale);
    const QString title = AmbrelStrings::localized(AmbrelStrings::recoveryCredentialTitle());
    EXPECT_NE(texts.find(title.toStdString()), std::string::npos) << title.toStdString();
}

TEST_P(ScreenLayoutTest, everyTextIsShownInFullIfTextsAreEnlarged) {
    for (const qreal scale : {1.25, 1.5}) {
        expectWholeTexts(GetParam(), scale);
    }
}

TEST(ScreenLayoutLanguagesTest, areAllLanguagesOfTheInterface) {
    QStringList tags;
    for (const SystemLanguage& language : systemLanguages) {
        tags << QString::fromLatin1(language.tag);
    }
    QStringList expected = AmbrelStrings::launchLocaleIdentifiers();
    tags.sort();
    expected.sort();
    EXPECT_EQ(tags, expected);
}

std::string nameOf(const testing::TestParamInfo<SystemLanguage>& language) {
    std::string name = language.param.tag;
    std::erase(name, '-');
    return name;
}

INSTANTIATE_TEST_SUITE_P(In, ScreenLayoutTest, testing::ValuesIn(systemLanguages), nameOf);

} // namespace
