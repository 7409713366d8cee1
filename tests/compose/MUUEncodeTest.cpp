#include "compose/MUUEncode.h"

#include "fakes/TempFolder.h"
#include "platform/FileError.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(MUUEncode, KnownBlocksAreExactToTheByte) {
    const std::string zeros = "M" + std::string(60, '`') + "\r\n";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", "`\r\n`\r\n"},
        {"A", "!02`@\r\n`\r\n"},
        {"Cat", "#0V%T\r\n`\r\n"},
        {std::string("\0\xFF", 2), "\"`/\\@\r\n`\r\n"},
        {std::string(45, '\0'), zeros + "`\r\n`\r\n"},
        {std::string(46, '\0'), zeros + "!`\"`@\r\n`\r\n"}};
    for (const auto& [bytes, lines] : cases) {
        EXPECT_EQ(uuencodedBlock("A.TXT", bytes), "begin 664 A.TXT\r\n" + lines + "end\r\n");
    }
}

TEST(MUUEncode, TheHeaderHoldsTheNameWithoutFolderOrLineBreaks) {
    const TempFolder temp;
    temp.makeFolder("X");
    temp.write("X/My Game.m1", "Cat");
    for (const char* path : {"X/My Game.m1", "X\\My Game.m1"}) {
        EXPECT_EQ(UUEncode(temp.path(path)), "begin 664 My Game.m1\r\n#0V%T\r\n`\r\nend\r\n");
    }
    EXPECT_THROW(UUEncode(temp.path("X")), FileError);
    EXPECT_TRUE(uuencodedBlock("a\r\nend\n.b", "").starts_with("begin 664 a end .b\r\n"));
}

} // namespace turnpost
