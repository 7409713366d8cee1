#include "roster/HostFile.h"

#include "fakes/TempFolder.h"

#include <gtest/gtest.h>

namespace turnpost {

TEST(HostFile, ReadsTheYearAndShowsRowsWithTurnFiles) {
    const TempFolder temp;
    temp.write("my.cup.hst", std::string(12, '\x7F') + "\x9F\x76");
    for (const char* name : {"MY.CUP.M1", "my.cup.m2", "MY.CUP.M16", "MY.CUP.M17", "OTHER.M5"}) {
        temp.write(name, "turn");
    }
    temp.makeFolder("MY.CUP.M6");
    GameDetails game;
    game.GameName = "Cup";
    game.rows.fill({0, "Name", "mail@example.org", "alt@example.org", "OLD.M1", true});
    GameDetails expected{"Cup", withSeparator(temp.path()), "my.cup.hst", 32767, {}};
    expected.rows.fill({0, "Name", "mail@example.org", "alt@example.org", "OLD.M1", false});
    expected.rows[0] = {1, "", "", "", "my.cup.M1", true};
    expected.rows[1] = {1, "", "", "", "my.cup.M2", true};
    expected.rows[15] = {1, "", "", "", "my.cup.M16", true};
    chooseHostFile(game, temp.path(), "my.cup.hst");
    EXPECT_TRUE(game == expected);
}

} // namespace turnpost
