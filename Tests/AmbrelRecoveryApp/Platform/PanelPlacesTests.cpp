#include "AmbrelRecoveryApp/Platform/PanelPlaces.h"

#include <QSet>
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
    EXPECT_TRUE(places.contains(QUrl::fromLocalFile("/")));
    EXPECT_EQ(QSet<QUrl>(places.begin(), places.end()).size(), places.size());
}

TEST(PanelPlaces, areVolumesThatAUserMayKeepFilesOn) {
    EXPECT_TRUE(PanelPlaces::isForFiles("/", "ext4"));
    EXPECT_TRUE(PanelPlaces::isForFiles("/", "overlay"));
    EXPECT_TRUE(PanelPlaces::isForFiles("/home", "btrfs"));
    EXPECT_TRUE(PanelPlaces::isForFiles("/media/someone/STICK", "vfat"));
    EXPECT_TRUE(PanelPlaces::isForFiles("/run/media/someone/Backup Disk", "fuseblk"));
    EXPECT_TRUE(PanelPlaces::isForFiles("/mnt/nas", "nfs4"));
    EXPECT_TRUE(PanelPlaces::isForFiles("/srv/share", "cifs"));
    EXPECT_TRUE(PanelPlaces::isForFiles("/variety", "xfs"));
}

TEST(PanelPlaces, areNotTheSystemsOwnVolumes) {
    EXPECT_FALSE(PanelPlaces::isForFiles("/boot/efi", "vfat"));
    EXPECT_FALSE(PanelPlaces::isForFiles("/boot", "ext4"));
    EXPECT_FALSE(PanelPlaces::isForFiles("/snap/core22/1", "squashfs"));
    EXPECT_FALSE(PanelPlaces::isForFiles("/run/user/1000", "tmpfs"));
    EXPECT_FALSE(PanelPlaces::isForFiles("/var/lib/docker/overlay2/x/merged", "overlay"));
    EXPECT_FALSE(PanelPlaces::isForFiles("/tmp", "tmpfs"));
    EXPECT_FALSE(PanelPlaces::isForFiles("/dev/shm", "tmpfs"));
}
