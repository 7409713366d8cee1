#include "roster/HostFile.h"

#include "fakes/TempFolder.h"
#include "platform/FileError.h"

#include <gtest/gtest.h>

namespace turnpost {

class HostFile : public testing::Test {
  protected:
    // What the host file with these bytes at its end says of the year, or why not.
    std::string yearOf(const std::string& end) const {
        temp.write("GAME.HST", std::string(12, '\x7F') + end);
        try {
            return std::to_string(readGameYear(temp.path("GAME.HST")));
        } catch (const FileError& error) {
            EXPECT_EQ(error.path(), temp.path("GAME.HST"));
            return error.reason();
        }
    }

    TempFolder temp;
};

TEST_F(HostFile, YearIsLittleEndianUnsignedAndCountedFrom2400UpToWhatFits) {
    const std::string tooFar = "Its game year is above 32767";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {{"\0\0", 2}, "2400"},
        {{"\5\0x", 3}, "2405"},
        {{"\0\1", 2}, "2656"},
        {{"\xFF\0", 2}, "2655"},
        {"\x9F\x76", "32767"},
        {"\xA0\x76", tooFar},
        {{"\0\x80", 2}, tooFar},
        {"\xFF\xFF", tooFar},
        {"\5", "It is shorter than 14 bytes and holds no game year"}};
    for (const auto& [bytes, expected] : cases) {
        EXPECT_EQ(yearOf(bytes), expected) << testing::PrintToString(bytes);
    }
}

TEST_F(HostFile, RowsFollowTheTurnFilesOfAnyCaseAndHiddenOnesKeepWhatTheyHold) {
    temp.write("my.cup.hst", std::string(12, '\0') + std::string("\5\0", 2));
    for (const char* name : {"MY.CUP.M1", "my.cup.m2", "MY.CUP.M16", "MY.CUP.M17", "OTHER.M5"}) {
        temp.write(name, "turn");
    }
    temp.makeFolder("MY.CUP.M6");
    GameDetails game;
    game.GameName = "Cup";
    game.rows.fill({0, "Name", "mail@example.org", "alt@example.org", "OLD.M1", true});
    GameDetails expected{"Cup", withSeparator(temp.path()), "my.cup.hst", 2405, game.rows};
    for (size_t i = 0; i < rowCount; ++i) {
        expected.rows.at(i).Shown = false;
    }
    for (const int i : {0, 1, 15}) {
        expected.rows.at(static_cast<size_t>(i)) = {
            1, "", "", "", "my.cup.M" + std::to_string(i + 1), true};
    }
    chooseHostFile(game, temp.path(), "my.cup.hst");
    EXPECT_TRUE(game == expected);
}

} // namespace turnpost
