#include "AmbrelRecoveryApp/FilePanels/MountedVolumes.h"

#include <gtest/gtest.h>

using Paths = std::vector<std::filesystem::path>;

TEST(MountedVolumesTest, areThoseOfTheTableWithoutDuplicates) {
    EXPECT_EQ(MountedVolumes::forFiles("27 1 254:0 / / rw,relatime - ext4 /dev/vda rw\n"
                                       "22 27 0:21 / /proc rw - proc proc rw\n"
                                       "40 27 8:1 / /media/x/STICK rw shared:7 master:2 - vfat /dev/sdb1 rw\n"
                                       "41 27 8:1 /a /media/x/STICK rw - vfat /dev/sdb1 rw\n"),
              (Paths{"/", "/media/x/STICK"}));
}

TEST(MountedVolumesTest, haveTheirUnescapedNames) {
    EXPECT_EQ(MountedVolumes::forFiles("1 2 3:4 / /media/My\\040Disk\\0129\\134 rw - ext4 /dev/sdb rw\n"),
              Paths{"/media/My Disk\n9\\"});
}

TEST(MountedVolumesTest, skipMalformedLines) {
    for (const char* table : {"", "\n", "x", "1 2 3:4 / /a rw ext4", "1 2 3:4 - ext4 x", "1 2 3:4 / /a rw -",
                              "1 2 3:4 / a rw - ext4 x", "1 2 3:4 /  rw - ext4 x"}) {
        EXPECT_TRUE(MountedVolumes::forFiles(table).empty()) << table;
    }
}

TEST(MountedVolumesTest, includeVolumesForTheUsersFiles) {
    EXPECT_TRUE(MountedVolumes::isForFiles("/", "ext4"));
    EXPECT_TRUE(MountedVolumes::isForFiles("/", "overlay"));
    EXPECT_TRUE(MountedVolumes::isForFiles("/home", "btrfs"));
    EXPECT_TRUE(MountedVolumes::isForFiles("/media/someone/STICK", "vfat"));
    EXPECT_TRUE(MountedVolumes::isForFiles("/run/media/someone/Backup Disk", "fuseblk"));
    EXPECT_TRUE(MountedVolumes::isForFiles("/mnt/nas", "nfs4"));
    EXPECT_TRUE(MountedVolumes::isForFiles("/srv/share", "cifs"));
    EXPECT_TRUE(MountedVolumes::isForFiles("/variety", "xfs"));
}

TEST(MountedVolumesTest, excludeTheSystemsOwnVolumes) {
    EXPECT_FALSE(MountedVolumes::isForFiles("/boot/efi", "vfat"));
    EXPECT_FALSE(MountedVolumes::isForFiles("/boot", "ext4"));
    EXPECT_FALSE(MountedVolumes::isForFiles("/snap/core22/1", "squashfs"));
    EXPECT_FALSE(MountedVolumes::isForFiles("/run/user/1000", "tmpfs"));
    EXPECT_FALSE(MountedVolumes::isForFiles("/var/lib/docker/overlay2/x/merged", "overlay"));
    EXPECT_FALSE(MountedVolumes::isForFiles("/tmp", "tmpfs"));
    EXPECT_FALSE(MountedVolumes::isForFiles("/dev/shm", "tmpfs"));
}
