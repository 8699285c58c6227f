#include "AmbrelLocalization/SettingsText.h"

#include "TestSupport.h"

#include <QSettings>
#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

std::optional<QString> text(std::string_view bytes, const char* key = "key") {
    return SettingsText::decoded(bytes).text(QString::fromUtf8(key));
}

TEST(SettingsText, hasNothingOfAnEmptyFile) {
    EXPECT_EQ(text(""), std::nullopt);
    EXPECT_EQ(text("\n\n"), std::nullopt);
    EXPECT_EQ(text("[General]"), std::nullopt);
}

TEST(SettingsText, hasTheKeysOfEverySection) {
    const std::string_view bytes = "key=a\n[General]\nother=b\n[Window]\nkey=c\n[%General]\nkey=d\n";
    EXPECT_EQ(text(bytes), QStringLiteral("a"));
    EXPECT_EQ(text(bytes, "other"), QStringLiteral("b"));
    EXPECT_EQ(text(bytes, "Window/key"), QStringLiteral("c"));
    EXPECT_EQ(text(bytes, "General/key"), QStringLiteral("d"));
}

TEST(SettingsText, takesTheLastOfTwoValues) {
    EXPECT_EQ(text("key=a\nkey=b\n"), QStringLiteral("b"));
    EXPECT_EQ(text("key=a\nkey=@Invalid()\n"), std::nullopt);
}

TEST(SettingsText, passesOverBlanksAndComments) {
    EXPECT_EQ(text("\xEF\xBB\xBF; first\r\n [General]\r\n\tkey = de \r\n"), QStringLiteral("de"));
    EXPECT_EQ(text("; \"quote\nkey=de ; \"another\n"), QStringLiteral("de"));
}

TEST(SettingsText, undoesEscapes) {
    EXPECT_EQ(text("key=\" a;b,c \"\n"), QStringLiteral(" a;b,c "));
    EXPECT_EQ(text("key=\\x65e5\\x672c\n"), QStringLiteral("日本"));
    EXPECT_EQ(text("key=\\n\\t\\\\\\\"\n"), QStringLiteral("\n\t\\\""));
    EXPECT_EQ(text("key=d\\\ne\n"), QStringLiteral("de"));
    EXPECT_EQ(text("key=Espa\xC3\xB1ol\n"), QStringLiteral("Español"));
    EXPECT_EQ(text("a%20b%U00E9=x\n", "a b\xC3\xA9"), QStringLiteral("x"));
    EXPECT_EQ(text("a%2=x\n", "a%2"), QStringLiteral("x"));
}

TEST(SettingsText, endsWithWhateverTheFileEndsWith) {
    for (const std::string_view bytes :
         {"key=\\", "key=\"", "key=\\x", "key", "[", "[]", "]", "=", ";", "%U00", "\\"}) {
        const auto value = text(bytes);
        EXPECT_TRUE(!value || value->size() <= 1) << bytes;
    }
}

TEST(SettingsText, takesAHeaderAsQtDoes) {
    EXPECT_EQ(text("[General\nkey=a\n"), QStringLiteral("a"));
    EXPECT_EQ(text("[gEnErAl]\nkey=a\n"), QStringLiteral("a"));
    EXPECT_EQ(text("[ General ] rest\nkey=a\n"), QStringLiteral("a"));
    EXPECT_EQ(text("[%general]\nkey=a\n", "general/key"), QStringLiteral("a"));
    EXPECT_EQ(text("[Window\nkey=a\n"), std::nullopt);
}

TEST(SettingsText, endsALineAtACarriageReturn) {
    EXPECT_EQ(text("other=a\rkey=b\r"), QStringLiteral("b"));
    EXPECT_EQ(text("key=a\\\n\rb\n"), QStringLiteral("ab"));
}

TEST(SettingsText, takesTheFirstEqualsSignOutsideQuotes) {
    EXPECT_EQ(text("\"a=b\"=c\n", "\"a=b\""), QStringLiteral("c"));
}

TEST(SettingsText, keepsTheBlanksThatQuotesOrEscapesHold) {
    EXPECT_EQ(text("key=\"a\"  b  ; c\n"), QStringLiteral("ab  "));
    EXPECT_EQ(text("key=a\\t  \n"), QStringLiteral("a\t"));
    EXPECT_EQ(text("key=a  \n"), QStringLiteral("a"));
}

TEST(SettingsText, takesAnEscapeWithoutDigitsForNothing) {
    EXPECT_EQ(text("key=a\\xz\n"), QStringLiteral("az"));
}

TEST(SettingsText, takesASingleAtSignForATextUnlessItIntroducesAnObject) {
    EXPECT_EQ(text("key=@home()\n"), QStringLiteral("@home()"));
    EXPECT_EQ(text("key=@String(a)\n"), QStringLiteral("a"));
    EXPECT_EQ(text("key=@ByteArray(a)\n"), std::nullopt);
    EXPECT_EQ(text("key=@Variant(a)\n"), std::nullopt);
}

TEST(SettingsText, readsNamesAsUTF8) {
    EXPECT_EQ(text("\v\xC3\xA9\f=a\n", "\xC3\xA9"), QStringLiteral("a"));
    EXPECT_EQ(text("a\\b=c\n", "a/b"), QStringLiteral("c"));
}

// Files that no program has written, put together at random from the signs that mean something.
TEST(SettingsText, readsWhatQtsSettingsRead) {
    const std::vector<std::string> parts = {"[General]\n", "[other]\n", "[general",   "\r",  "\\\n\r", "@String(",
                                            "\\x",         "\v",        "key=",       "key", "=",      "\n",
                                            "de",          "\"",        "\\",         ";",   ",",      "@",
                                            "@@",          "(",         ")",          " ",   "\t",     "#",
                                            "é",           "\\x41",     "\\n",        "%20", "x=y\n",  "\r\n",
                                            "\\\n",        "key=de\n",  "@Invalid()", "]"};
    std::mt19937 random(20260614); // NOLINT(cert-msc51-cpp): the same files at every run
    const TemporaryDirectory folder;
    for (int round = 0; round < 2000; ++round) {
        std::string bytes = random() % 2 == 0 ? "[General]\n" : "";
        for (auto count = random() % 12; count > 0; --count) {
            bytes += parts[random() % parts.size()];
        }
        // Qt's settings remember files by name, size and time, so each round takes another name.
        const auto path = writeInPlace(folder / (std::to_string(round) + ".conf"), bytes);
        const QSettings settings(QString::fromStdString(path), QSettings::IniFormat);
        const SettingsText ours = SettingsText::decoded(bytes);
        for (const char* name : {"key", "x", "other/key", "other/x"}) {
            const QVariant value = settings.value(QString::fromUtf8(name));
            const bool isText = value.typeId() == QMetaType::QString;
            EXPECT_EQ(ours.text(QString::fromUtf8(name)), isText ? std::optional(value.toString()) : std::nullopt)
                << name << " in\n"
                << bytes;
        }
        std::filesystem::remove(path);
    }
}

} // namespace
