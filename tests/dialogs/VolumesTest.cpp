#include "dialogs/Volumes.h"

#include <gtest/gtest.h>

namespace turnpost {

using Names = std::vector<std::string>;

TEST(Volumes, APersonIsOfferedDisksSticksAndSharesTheRootFirstAndNoneOfTheSystemsOwn) {
    const std::vector<Volume> mounted = {
        {"/home", "/dev/sda2", "ext4"},     {"/mnt/nas", "nas:/games", "nfs4"},
        {"/home", "/dev/sda3", "ext4"},     {"/proc", "proc", "proc"},
        {"/boot/efi", "/dev/sda1", "vfat"}, {"/opt/packed", "/dev/loop2", "squashfs"},
        {"/bootleg", "/dev/sdc1", "ext4"}};
    EXPECT_EQ(volumesForPeople(mounted), Names({"/", "/home", "/mnt/nas", "/bootleg"}));
}

TEST(Volumes, AFolderBelongsToTheDeepestMountPointAboveIt) {
    const Names mountPoints = {"/", "/mnt", "/mnt/nas", "C:\\", "D:\\"};
    EXPECT_EQ(volumeOf("/mnt/nas/games", mountPoints), "/mnt/nas");
    EXPECT_EQ(volumeOf("/mnt/nas", mountPoints), "/mnt/nas");
    EXPECT_EQ(volumeOf("/mnt/nasty", mountPoints), "/mnt");
    EXPECT_EQ(volumeOf("d:\\Stars\\Cup", mountPoints), "D:\\");
    EXPECT_EQ(volumeOf("/home", {"/mnt"}), "");
}

} // namespace turnpost
