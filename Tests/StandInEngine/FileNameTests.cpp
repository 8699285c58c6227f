#include "Format/FileName.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

TEST(FileNameTest, aNameOfAnEntryIsSafe) {
    for (const std::string& name :
         {"a"s, "IMG 1.jpg"s, "..."s, ".hidden"s, "a\\b"s, "\xFF"s, "línea\n"s, std::string(255, 'x')}) {
        EXPECT_TRUE(FileName::isSafe(name)) << name;
    }
}

TEST(FileNameTest, aNameThatLeadsElsewhereIsNotSafe) {
    for (const std::string& name : {""s, "."s, ".."s, "/"s, "a/b"s, "/a"s, "../a"s, "a\0b"s, std::string(256, 'x')}) {
        EXPECT_FALSE(FileName::isSafe(name)) << name;
    }
}

TEST(FileNameTest, aNumberGoesBeforeTheExtension) {
    EXPECT_EQ("IMG (1).jpg", FileName::numbered("IMG.jpg", 1));
    EXPECT_EQ("archive.tar (12).gz", FileName::numbered("archive.tar.gz", 12));
    EXPECT_EQ("README (2)", FileName::numbered("README", 2));
    EXPECT_EQ(".hidden (2)", FileName::numbered(".hidden", 2));
    EXPECT_EQ("a.longer than any extension (2)", FileName::numbered("a.longer than any extension", 2));
}

TEST(FileNameTest, aLongNameLosesWholeCharactersOfItsStem) {
    EXPECT_EQ(std::string(247, 'x') + " (1).jpg", FileName::numbered(std::string(251, 'x') + ".jpg", 1));
    std::string umlauts;
    for (int count = 0; count < 125; ++count) {
        umlauts += "ö";
    }
    const std::string numbered = FileName::numbered(umlauts + "x.jpg", 1);
    EXPECT_EQ(umlauts.substr(0, 246) + " (1).jpg", numbered);
}
