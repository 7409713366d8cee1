#include "dialogs/FolderList.h"
#include "dialogs/FilePicker.h"

#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

using Names = std::vector<std::string>;

TEST(FolderList, ShowsTheWayFromTheRootThenSubfoldersAndMatchingFilesWithoutRegardToCase) {
    const TempFolder temp;
    for (const char* name : {"b", "A", ".wine", "C"}) {
        temp.makeFolder(std::string("Game/") + name);
    }
    for (const char* name : {"b.ntp", "A.NTP", ".NTP", "ntp", "A.NTP.old", "c.Ntp"}) {
        temp.write(std::string("Game/") + name, "");
    }
    const auto list = listFolder(temp.path("Game/.//"), "*.NTP");
    ASSERT_TRUE(list);
    EXPECT_EQ(list->folder(), temp.path("Game"));
    Names names;
    for (const FolderLine& line : list->lines) {
        names.push_back(line.name);
        EXPECT_TRUE(listFolder(line.path, "*.*")) << line.path;
    }
    const auto way = names.begin() + static_cast<std::ptrdiff_t>(list->current);
    EXPECT_EQ(names.front(), fromNativePath(toNativePath(temp.path()).root_path()));
    EXPECT_EQ(Names(way, names.end()), Names({"Game", "A", "b", "C", ".wine"}));
    EXPECT_EQ(list->files, Names({"A.NTP", "b.ntp", "c.Ntp", ".NTP"}));
    EXPECT_EQ(listFolder(temp.path("Game"), "*.*")->files.size(), 6U);
}

TEST(FolderList, AFolderThatCannotBeListedGivesTheNearestAboveItAndStrangeNamesStopNothing) {
    const TempFolder temp;
    temp.write("file", "");
    for (const std::string& path : {temp.path("gone/deep"), temp.path("file")}) {
        EXPECT_FALSE(listFolder(path, "*.*"));
        EXPECT_EQ(listNearestFolder(path, "*.*")->folder(), temp.path());
    }
#ifndef _WIN32
    temp.makeFolder("no\xffutf8");
    std::filesystem::create_symlink("nowhere", temp.path("link"));
    temp.makeFolder("far/deep");
    std::filesystem::create_symlink("far/deep", temp.path("climb"));
    EXPECT_EQ(listFolder(temp.path("climb/.."), "*.*")->folder(), temp.path("far"));
    const auto list = listFolder(temp.path(), "*.*");
    EXPECT_EQ(list->files, Names({"file"}));
    EXPECT_TRUE(listFolder(list->lines.back().path, "*.*"));
#endif
}

TEST(FilePicker, OpensInTheGamesFolderIfThereIsOneAndOffersNoDefaultButGameDetails) {
    const TempFolder temp;
    temp.makeFolder("Game");
    EXPECT_EQ(pickerStartFolder(temp.path("Game"), "/program"), temp.path("Game"));
    EXPECT_EQ(pickerStartFolder(temp.path("gone"), "/program"), "/program");
    EXPECT_EQ(pickerStartFolder("", "/program"), "/program");
    for (const std::string pattern : {"*.NTP", "*.HST", "*.*"}) {
        EXPECT_EQ(offersDefaultGame({"", pattern, 0, "", ""}), pattern == "*.NTP");
    }
}

} // namespace turnpost
