#include "files/Folders.h"

#include <cstdlib>
#include <gtest/gtest.h>

#ifndef _WIN32
namespace turnpost {

TEST(Folders, ConfigurationFolderIsNeverRelative) {
    setenv("HOME", "/home/host", 1);
    setenv("XDG_CONFIG_HOME", "/cfg", 1);
    EXPECT_EQ(configurationFolder(), "/cfg/nimbus-turnpost");
    for (const char* useless : {"", "relative"}) {
        setenv("XDG_CONFIG_HOME", useless, 1);
        EXPECT_EQ(configurationFolder(), "/home/host/.config/nimbus-turnpost");
    }
}

} // namespace turnpost
#endif
