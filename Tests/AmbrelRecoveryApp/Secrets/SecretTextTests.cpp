#include "AmbrelRecoveryApp/Secrets/SecretText.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>

namespace {

std::string utf8(QStringView text) {
    const SecretBytes bytes = SecretText(text).utf8();
    return {reinterpret_cast<const char*>(bytes.bytes().data()), bytes.size()};
}

} // namespace

TEST(SecretTextTest, keepsTheTextAsItIs) {
    EXPECT_EQ(SecretText(u" a\u00E9 ").view(), u" a\u00E9 ");
    EXPECT_TRUE(SecretText().view().isEmpty());
    EXPECT_TRUE(SecretText(u"").view().isEmpty());
}

TEST(SecretTextTest, convertsToUtf8WithoutTrimming) {
    EXPECT_EQ(utf8(u""), "");
    EXPECT_EQ(utf8(u" plain "), " plain ");
    EXPECT_EQ(utf8(u"\u00FC\u4E2D\U0001F5DD"), "\u00FC\u4E2D\U0001F5DD");
}

TEST(SecretTextTest, replacesInvalidText) {
    const char16_t loneSurrogate[] = {u'a', 0xD800, u'b'};
    EXPECT_EQ(utf8(QStringView(loneSurrogate, 3)), "a\uFFFDb");
}

TEST(SecretTextTest, survivesTheRoundTripThroughUtf8) {
    for (const QStringView text : {u"", u" plain ", u"\u00FC\u4E2D\U0001F5DD", u"\uFEFFmark"}) {
        EXPECT_EQ(SecretText::ofUtf8(SecretText(text).utf8()).view(), text);
    }
    const std::string_view noText = "a\xFF";
    EXPECT_EQ(SecretText::ofUtf8(SecretBytes::copyOf(std::as_bytes(std::span(noText)))).view(), u"a\uFFFD");
}

TEST(SecretTextTest, countsCharactersAndNotUnits) {
    EXPECT_EQ(SecretText().characterCount(), 0);
    EXPECT_EQ(SecretText(u"a\U0001F5DDb").characterCount(), 3);
    const char16_t loneSurrogates[] = {0xDC00, 0xD800};
    EXPECT_EQ(SecretText(QStringView(loneSurrogates, 2)).characterCount(), 2);
}

TEST(SecretTextTest, replacesCharacters) {
    SecretText text(u"a\U0001F5DDb");
    text.replace(1, 2, u"xy");
    EXPECT_EQ(text.view(), u"axyb");
    text.replace(0, 0, u"\U0001F5DD");
    text.replace(5, 5, u"!");
    EXPECT_EQ(text.view(), u"\U0001F5DDaxyb!");
    text.replace(1, 6, u"");
    EXPECT_EQ(text.view(), u"\U0001F5DD");
    text.replace(0, 1, {});
    EXPECT_TRUE(text.view().isEmpty());
}

TEST(SecretTextTest, isBlankIfItHasOnlyWhiteSpace) {
    EXPECT_TRUE(SecretText().isBlank());
    EXPECT_TRUE(SecretText(u" \t\n\r\u00A0\u2029").isBlank());
    EXPECT_FALSE(SecretText(u" x").isBlank());
}
