#include "app/AppFixture.h"

namespace turnpost {

class StoredGames : public AppFixture {
  protected:
    StoredGames() { startWithGame(); }
};

TEST_F(StoredGames, AnEmptySlotDoesNothingAndOneWithoutItsFileSaysSo) {
    application.storeStoredGames(
        {{{" - Empty - ", host.path("GAME.HST")}, {"Gone", "/gone.NTP"}, {"No file", ""}, {}}});
    for (const int slot : {1, 2, 3, 4}) {
        application.loadStoredGame(slot);
    }
    EXPECT_EQ(windows.shown, Texts({"box", "box"}));
    EXPECT_EQ(windows.boxes, Texts({"Game details not found", "Game details not found"}));
}

TEST_F(StoredGames, ConfigureSaysFirstWhatHasToBeDoneFirst) {
    application.configureStoredGames();
    application.game().GamePath = "";
    application.configureStoredGames();
    application.game().GameName = "";
    application.configureStoredGames();
    EXPECT_EQ(windows.boxes, Texts({"Please save game details first", "Please find a game",
                                    "Please enter a game name"}));
    EXPECT_EQ(windows.shown, Texts({"box", "box", "box"}));
}

TEST_F(StoredGames, TheCurrentGameGoesIntoASlotAndTheSettingsFileAndComesBackByItsEntry) {
    const StoredGame stored{"Cup", withSeparator(host.path()) + "GAME.NTP"};
    application.saveGame();
    windows.inStoredGames = [&] {
        EXPECT_EQ(application.currentGameToStore(), stored);
        application.storeStoredGames({{{}, {}, stored, {}}});
    };
    application.configureStoredGames();
    EXPECT_EQ(windows.shown, Texts({"box", "stored games", "values"}));
    const std::string settings = program.read("TURNPOST.INI");
    EXPECT_EQ(parseSettings(settings).settings.StoredGames[2], stored);
    application.newGame();
    application.loadStoredGame(3);
    EXPECT_EQ(windows.shown.size(), 5U) << "one box too many";
    EXPECT_EQ(values.game.GameName, "Cup");
    EXPECT_TRUE(values.game.rows[3].Shown);
    EXPECT_EQ(program.read("TURNPOST.INI"), settings);
    application.storeStoredGames({});
    EXPECT_EQ(program.read("TURNPOST.INI"), printSettings(Settings()));
}

} // namespace turnpost
