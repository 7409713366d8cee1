#include "dialogs/FolderList.h"

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
    const FolderList list = listFolder(temp.path("Game/.//"), "*.NTP").value();
    EXPECT_EQ(list.folder(), temp.path("Game"));
    EXPECT_EQ(list.lines.front().path, fromNativePath(toNativePath(temp.path()).root_path()));
    Names names;
    for (size_t line = list.current; line < list.lines.size(); ++line) {
        names.push_back(list.lines[line].name);
        EXPECT_TRUE(listFolder(list.lines[line].path, "*.*")) << names.back();
    }
    EXPECT_EQ(names, Names({"Game", "A", "b", "C", ".wine"}));
    EXPECT_EQ(list.files, Names({"A.NTP", "b.ntp", "c.Ntp", ".NTP"}));
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

} // namespace turnpost
