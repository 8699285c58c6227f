#include "AmbrelRecoveryApp/Foundation/FileURL.h"

#include <QUrl>
#include <gtest/gtest.h>

#include <string>

namespace {

TEST(FileURLTest, everyPathSurvivesTheRoundTrip) {
    for (const std::string name : {"/a/b.ambrel", "/a/100%", "/a/#?&;+", "/a/ü", "/a/\xFF", "/a/two\nlines", "/"}) {
        EXPECT_EQ(FileURL::path(QUrl::fromEncoded(FileURL::encoded(name))), name);
    }
}

TEST(FileURLTest, aHostIsAcceptedOnlyIfItIsThisMachine) {
    EXPECT_EQ(FileURL::path(QUrl("file://localhost/a")), "/a");
    EXPECT_EQ(FileURL::path(QUrl("file://elsewhere/a")), std::nullopt);
    const QString noHost(64, u'a');
    EXPECT_EQ(FileURL::path(QUrl("file://" + noHost + "/a")), std::nullopt);
}

TEST(FileURLTest, anyOtherURLIsNotAPath) {
    for (const char* const url : {"https://example.org/a", "/a", "a", "", "file:a", "file:///a?b", "file:///a#b",
                                  "file:///a%00b", "smb://host/a", "trash:///a"}) {
        EXPECT_EQ(FileURL::path(QUrl(url)), std::nullopt) << url;
    }
}

} // namespace
