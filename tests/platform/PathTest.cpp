#include "platform/Path.h"

#include "platform/Folders.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace turnpost {

TEST(Path, IsCutAtTheLastSeparatorOfEitherKindAndARootKeepsIts) {
    for (const std::string folder : {"C:\\", "C:/", "/", "\\", ""}) {
        EXPECT_EQ(folderOfPath(folder + "A.M1"), folder);
        EXPECT_EQ(nameOfPath(folder + "A.M1"), "A.M1");
        EXPECT_EQ(joinPath(folder, "A.M1"), folder + "A.M1");
    }
    for (const std::string name : {"\\A.M1", "/A.M1", "/"}) {
        EXPECT_EQ(folderOfPath("C:\\G/ab" + name), "C:\\G/ab");
        EXPECT_EQ(nameOfPath("C:\\G/ab" + name), name.substr(1));
    }
    EXPECT_EQ(joinPath("g", "A.M1"), std::string("g") + pathSeparator + "A.M1");
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
}
#endif

} // namespace turnpost
