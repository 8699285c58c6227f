#include "AmbrelRecoveryApp/Foundation/FileNameText.h"

#include <gtest/gtest.h>

using FileNameText::readable;

TEST(FileNameTextTest, leavesNamesOfEveryScriptAsTheyAre) {
    for (const char* name : {"Family Photos.ambrel", "写真 2026", "صور العائلة", "می‌خواهم",
                             "👩‍👩‍👧", "Zoë e\u0301"}) {
        EXPECT_EQ(readable(name), QString::fromUtf8(name));
    }
}

TEST(FileNameTextTest, showsControlCharactersAsPictures) {
    EXPECT_EQ(readable("two\nlines\t\x7F\x1B"), QString::fromUtf8("two␊lines␉␡␛"));
    EXPECT_EQ(readable("a\u0085b\u2028c"), QString("a[U+0085]b[U+2028]c"));
}

TEST(FileNameTextTest, showsCharactersThatChangeTheDirection) {
    EXPECT_EQ(readable("photo\u202Egpj.exe"), QString("photo[U+202E]gpj.exe"));
    EXPECT_EQ(readable("\u2066a\u2069\u200F\u061C"), QString("[U+2066]a[U+2069][U+200F][U+061C]"));
}

TEST(FileNameTextTest, showsAByteOrderMarkAtTheStart) {
    EXPECT_EQ(readable("\uFEFFa"), QString("[U+FEFF]a"));
    EXPECT_EQ(readable("\uFEFF"), QString("[U+FEFF]"));
}

TEST(FileNameTextTest, showsThatBytesAreNotText) {
    EXPECT_EQ(readable("a\xFF.ambrel"), QString("a%1.ambrel").arg(QChar(QChar::ReplacementCharacter)));
}
