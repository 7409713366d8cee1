#include "platform/Path.h"

#include "platform/Files.h"
#include "platform/Folders.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <vector>

namespace turnpost {

TEST(Path, IsCutAtTheLastSeparatorOfEitherKindAndARootKeepsIts) {
    const std::vector<std::pair<std::string, std::string>> foldersAndNames = {
        {"C:\\G", "\\A.M1"}, {"C:\\G", "/A.M1"}, {"/g", "\\A.M1"}, {"C:\\", "A.M1"},
        {"C:/", "A.M1"},     {"/", "A.M1"},      {"\\", "A.M1"},   {"ab", "\\A.M1"},
        {"", "A.M1"},        {"/g", "/"},        {"", ""}};
    for (const auto& [folder, rest] : foldersAndNames) {
        EXPECT_EQ(folderOfPath(folder + rest), folder);
        EXPECT_EQ(nameOfPath(folder + rest), rest.substr(rest.find_last_of("/\\") + 1));
    }
    EXPECT_EQ(joinPath("C:\\", "A.M1"), "C:\\A.M1");
    EXPECT_EQ(joinPath("g", "A.M1"), std::string("g") + pathSeparator + "A.M1");
    EXPECT_EQ(joinPath("", "A.M1"), "A.M1");
}

TEST(Folders, TheProgramsFolderIsTheRunningProgramsWithoutATrailingSeparator) {
    EXPECT_FALSE(isSeparator(programFolder().back()));
    EXPECT_TRUE(folderHoldsFile(programFolder()));
}

#ifndef _WIN32
TEST(Folders, TheConfigurationFolderIsNeverRelativeToWhereTheProgramWasStarted) {
    setenv("HOME", "/home/host", 1);
    setenv("XDG_CONFIG_HOME", "/cfg", 1);
    EXPECT_EQ(configurationFolder(), "/cfg/nimbus-turnpost");
    for (const char* useless : {"", "relative"}) {
        setenv("XDG_CONFIG_HOME", useless, 1);
        EXPECT_EQ(configurationFolder(), "/home/host/.config/nimbus-turnpost");
    }
    unsetenv("XDG_CONFIG_HOME");
    unsetenv("HOME");
    EXPECT_EQ(configurationFolder(), "");
}
#endif

} // namespace turnpost
