#include "AmbrelRecoveryApp/Platform/PanelPlaces.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <filesystem>

TEST(PanelPlaces, beginAtHomeAndListEveryPlaceOnce) {
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    std::filesystem::create_directory(home.path().toStdString() + "/Pictures");
    const QList<QUrl> places = PanelPlaces::urls();
    ASSERT_FALSE(places.isEmpty());
    EXPECT_EQ(places.first(), QUrl::fromLocalFile(home.path()));
    EXPECT_TRUE(places.contains(QUrl::fromLocalFile(home.path() + "/Pictures")));
    EXPECT_FALSE(places.contains(QUrl::fromLocalFile(home.path() + "/Documents")));
    EXPECT_EQ(QSet<QUrl>(places.begin(), places.end()).size(), places.size());
}
