#include "dialogs/Volumes.h"

#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

using Names = std::vector<std::string>;

TEST(Volumes, OfferPlacesForPeopleAndNoSystemMounts) {
    const TempFolder home;
    home.makeFolder("prefix/drive_c");
    const std::vector<Volume> mounted = {
        {home.path(), "/dev/sda2", "ext4"}, {"/mnt/nas", "nas:/games", "nfs4"},
        {"/proc", "proc", "proc"},          {"/boot/efi", "/dev/sda1", "vfat"},
        {"/bootleg", "/dev/sdc1", "ext4"},  {"/opt/packed", "/dev/loop2", "squashfs"}};
    const std::string driveC = joinPath(home.path("prefix"), "drive_c");
    EXPECT_EQ(placesForPeople(mounted, home.path(), home.path("prefix")),
              Names({"/", home.path(), driveC, "/mnt/nas", "/bootleg"}));
    EXPECT_EQ(placesForPeople({}, home.path("gone"), home.path()), Names({"/"}));
#ifndef _WIN32
    home.makeFolder("Zo\xEB");
    EXPECT_EQ(placesForPeople({}, home.path("Zo\xEB"), ""), Names({"/"})) << "no name to keep";
#endif
    home.makeFolder(".wine/drive_c");
    EXPECT_EQ(placesForPeople({}, home.path(), "").back(), joinPath(home.path(".wine"), "drive_c"));
}

TEST(Volumes, FolderBelongsToTheDeepestMountPointAboveIt) {
    const Names mountPoints = {"/mnt", "/mnt/nas", "/", "C:\\", "D:\\"};
    EXPECT_EQ(volumeOf("/mnt/nas/games", mountPoints), "/mnt/nas");
    EXPECT_EQ(volumeOf("/mnt/nasty", mountPoints), "/mnt");
    EXPECT_EQ(volumeOf("d:\\Stars\\Cup", mountPoints), "D:\\");
    EXPECT_EQ(volumeOf("/home", {"/mnt"}), "");
}

} // namespace turnpost
