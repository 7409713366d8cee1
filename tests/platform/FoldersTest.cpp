#include "platform/Folders.h"

#include "platform/Files.h"
#include "platform/Path.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace turnpost {

TEST(Folders, TheProgramsFolderIsTheRunningProgramsWithoutATrailingSeparator) {
    ASSERT_FALSE(programFolder().empty());
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
    EXPECT_EQ(configurationFolder(), "/home/host/.config/nimbus-turnpost");
    unsetenv("HOME");
    EXPECT_EQ(configurationFolder(), "");
}
#endif

} // namespace turnpost
