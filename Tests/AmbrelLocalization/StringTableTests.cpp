#include "AmbrelLocalization/StringTable.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(StringTableTest, hasItsTextsByKey) {
    const StringTable table = StringTable::decoded(R"({"a.b": "Español", "c": "日本語 \u00e9\n😀"})");
    EXPECT_EQ(table.size(), 2U);
    EXPECT_EQ(table.text("a.b"), QStringLiteral("Español"));
    EXPECT_EQ(table.text("c"), QStringLiteral("日本語 é\n😀"));
    EXPECT_EQ(table.text("a"), std::nullopt);
    EXPECT_EQ(table.text(""), std::nullopt);
}

TEST(StringTableTest, isEmptyIfTheTextIsNotAJsonObject) {
    for (const std::string_view bytes :
         {"", "{", "[]", "\"text\"", "null", "{\"a\": \"b\"", "{\"a\": \"b\",}", "{\"a\" \"b\"}", "{\"a\": 'b'}",
          "{\"a\": \"b\"} trailing", "{\"a\": \"b\"}{}", "{\"a\": \"\\ud800\"}", "{\"a\": \"b\x80\"}",
          "{\"a\": \"b\xC3\"}", "{\"a\": \"line\nbreak\"}", "// comment\n{}"}) {
        EXPECT_EQ(StringTable::decoded(bytes).size(), 0U) << bytes;
    }
    EXPECT_EQ(StringTable::decoded(std::string(200'000, '[')).size(), 0U);
    EXPECT_EQ(StringTable::decoded(std::string_view("\0\0\0", 3)).size(), 0U);
}

TEST(StringTableTest, leavesOutValuesThatAreNoText) {
    const StringTable table = StringTable::decoded(
        R"({"a": 1, "b": null, "c": ["x"], "d": {"a": "nested"}, "e": true, "f": 1.5, "g": "text"})");
    EXPECT_EQ(table.size(), 1U);
    EXPECT_EQ(table.text("g"), QStringLiteral("text"));
}

TEST(StringTableTest, hasNoBlankTexts) {
    const StringTable table = StringTable::decoded(R"({"a": "", "b": "  \n\t", "c": "\u00a0", "d": " x "})");
    for (const std::string_view key : {"a", "b", "c"}) {
        EXPECT_EQ(table.text(key), std::nullopt) << key;
    }
    EXPECT_EQ(table.text("d"), QStringLiteral(" x "));
}

TEST(StringTableTest, takesTheLastOfTwoValues) {
    EXPECT_EQ(StringTable::decoded(R"({"a": "first", "a": "last"})").text("a"), QStringLiteral("last"));
}

TEST(StringTableTest, undoesEscapesInKeysAndTexts) {
    const StringTable table = StringTable::decoded(R"({"\u0061":"\ud83d\ude00","\\":"\"\/","":"x"})");
    EXPECT_EQ(table.text("a"), QStringLiteral("😀"));
    EXPECT_EQ(table.text("\\"), QStringLiteral("\"/"));
    EXPECT_EQ(table.text(""), QStringLiteral("x"));
}

TEST(StringTableTest, keepsItsTextsWhenItIsMoved) {
    StringTable table = StringTable::decoded(R"({"a": "b"})");
    const StringTable moved = std::move(table);
    EXPECT_EQ(moved.text("a"), QStringLiteral("b"));
}

} // namespace
