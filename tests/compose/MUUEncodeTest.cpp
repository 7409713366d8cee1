#include "compose/MUUEncode.h"

#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(MUUEncode, BlockIsExactAndItsHeaderNamesTheFile) {
    const TempFolder temp;
    temp.makeFolder("X");
    temp.write("X/My Game.m1", std::string(46, '\0'));
    const std::string zeros = "M" + std::string(60, '`') + "\r\n!`\"`@\r\n`\r\nend\r\n";
    for (const char* path : {"X/My Game.m1", "X\\My Game.m1"}) {
        EXPECT_EQ(UUEncode(temp.path(path)), "begin 664 My Game.m1\r\n" + zeros);
    }
    EXPECT_EQ(uuencodedBlock("a\r\nend\n.b", "Cat"), "begin 664 a end .b\r\n#0V%T\r\n`\r\nend\r\n");
}

} // namespace turnpost
