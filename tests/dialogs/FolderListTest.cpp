#include "dialogs/FolderList.h"

#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

using Names = std::vector<std::string>;

template <typename Line> static Names namesOf(const std::vector<Line>& lines, size_t from = 0) {
    Names names;
    for (size_t line = from; line < lines.size(); ++line) {
        names.push_back(lines[line].name);
    }
    return names;
}

TEST(FolderList, ShowsParentFoldersSubfoldersAndMatchingFiles) {
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
    EXPECT_EQ(list.lines.at(list.current - 1).path, temp.path());
    EXPECT_EQ(list.lines.back().path, temp.path("Game/.wine"));
    EXPECT_EQ(namesOf(list.lines, list.current), Names({"Game", "A", "b", "C", ".wine"}));
    EXPECT_EQ(namesOf(list.files), Names({"A.NTP", "b.ntp", "c.Ntp", ".NTP"}));
    EXPECT_EQ(listFolder(temp.path("Game"), "*.*")->files.size(), 6U);
}

TEST(FolderList, UnlistableFoldersGiveTheNearestParent) {
    const TempFolder temp;
    temp.write("file", "");
    for (const std::string& path : {temp.path("gone/deep"), temp.path("file")}) {
        EXPECT_FALSE(listFolder(path, "*.*"));
        EXPECT_EQ(listNearestFolder(path, "*.*")->folder(), temp.path());
    }
#ifndef _WIN32
    std::filesystem::create_symlink("nowhere", temp.path("link"));
    temp.makeFolder("far/deep");
    std::filesystem::create_symlink("far/deep", temp.path("climb"));
    EXPECT_EQ(listFolder(temp.path("climb/.."), "*.*")->folder(), temp.path("far"));
    EXPECT_EQ(namesOf(listFolder(temp.path(), "*.*")->files), Names({"file"}));
#endif
}

#ifndef _WIN32
// A game file that holds such a name would give another name when it is read.
TEST(FolderList, UnusableNamesAreMarkedAndNeverEntered) {
    const TempFolder temp;
    temp.makeFolder("Zo\xEB/deep");
    for (const char* name : {"Zoë.hst", "tab\t\"&.hst", "Zo\xEB.hst", "a\nb.hst", "a\u2028b.hst"}) {
        temp.write(name, "");
    }
    std::string reasons;
    const FolderList list = listFolder(temp.path(), "*.hst").value();
    for (const FileLine& file : list.files) {
        reasons += file.name + ": " + (file.unusable ? file.unusable->words : "") + "\n";
    }
    const std::string rename = ", so a game file cannot hold it. Rename it to use it here.\n";
    const std::string breaks = ": This name holds a line break" + rename;
    const std::string bytes = "This name is not valid UTF-8" + rename;
    EXPECT_EQ(reasons, "a\nb.hst" + breaks + "a\u2028b.hst" + breaks + "tab\t\"&.hst: \n" +
                           "Zoë.hst: \nZo\xEB.hst: " + bytes);
    EXPECT_EQ(list.lines.back().unusable.value().words + "\n", bytes);
    EXPECT_FALSE(listFolder(list.lines.back().path, "*.*"));
    EXPECT_EQ(listNearestFolder(temp.path("Zo\xEB/deep"), "*.*")->folder(), temp.path());
}
#endif

} // namespace turnpost
