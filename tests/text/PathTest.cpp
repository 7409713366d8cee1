#include "text/Path.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(Path, SplitsAtTheLastSeparatorOfEitherKind) {
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

} // namespace turnpost
