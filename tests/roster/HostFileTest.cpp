#include "roster/HostFile.h"

#include "fakes/TempFolder.h"
#include "files/FileError.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(HostFile, ReadsTheYearAndShowsRowsWithTurnFiles) {
    const TempFolder temp;
    temp.write("my.cup.hst", std::string(12, '\x7F') + "\x9F\x76");
    for (const char* name : {"MY.CUP.M1", "my.cup.m2", "MY.CUP.M16", "MY.CUP.M17", "OTHER.M5"}) {
        temp.write(name, "turn");
    }
    temp.makeFolder("MY.CUP.M6");
    PlayerSlot row{.PlayerName = "Name",
                   .PlayerEmail = "mail@a.org",
                   .AltEmail = "alt@a.org",
                   .GameFile = "OLD.M1",
                   .Shown = true};
    GameDetails game{.GameName = "Cup"};
    game.rows.fill(row);
    GameDetails expected{.GameName = "Cup",
                         .GamePath = withSeparator(temp.path()),
                         .HostFileName = "my.cup.hst",
                         .GameYear = 32767};
    row.Shown = false;
    expected.rows.fill(row);
    for (const int found : {0, 1, 15}) {
        expected.row(found) = {
            .IncludePlayer = 1, .GameFile = "my.cup.M" + std::to_string(found + 1), .Shown = true};
    }
    chooseHostFile(game, temp.path(), "my.cup.hst");
    EXPECT_EQ(game, expected);
    temp.write("short.hst", std::string(13, '\1'));
    EXPECT_THROW(readGameYear(temp.path("short.hst")), FileError);
}

} // namespace turnpost
