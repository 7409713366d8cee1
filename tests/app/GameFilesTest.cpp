#include "app/AppFixture.h"

#include "storage/GameDetailsFile.h"

namespace turnpost {

class GameFiles : public AppFixture {
  protected:
    GameFiles() {
        game.rows[0].IncludePlayer = 2;
        application.storeMessage({"Turn", "Hello\r\n\"you\", all"});
        saved = loaded();
        application.saveGame();
        application.newGame();
        windows.shown.clear();
        windows.boxes.clear();
    }

    // Everything that a game details file sets, and the year.
    std::string loaded() const {
        return printGameDetails(values.game, values.message) + std::to_string(values.game.GameYear);
    }

    std::string saved;
};

TEST_F(GameFiles, OpenRestoresTheGameAndReadsTheYearAnew) {
    EXPECT_EQ(host.read("GAME.NTP") + "2405", saved);
    writeHostFile('\x06');
    application.storeAttachments({0, 1, {"a", "", "c"}});
    open(host, "game.ntp");
    EXPECT_EQ(windows.shown, Texts({"file picker", "values"}));
    EXPECT_EQ(loaded(), saved.substr(0, saved.size() - 1) + "6");
    EXPECT_EQ(values.attachments, AttachmentChoices({0, 1, {"a", "", "c"}}));
}

TEST_F(GameFiles, LineBreaksInNamesNeverReachTheBoxes) {
    open(host, "GAME.NTP");
    game.GameName = "Cup\r\nX";
    game.rows[0].PlayerName = "Red\rX";
    application.storeMessage({"Turn\nX", "a\r\nb"});
    application.saveGame();
    application.openGame();
    EXPECT_EQ(values.game.GameName, "Cup X");
    EXPECT_EQ(values.game.rows[0].PlayerName, "Red X");
    EXPECT_EQ(values.message, (MessageTemplate{"Turn X", "a\r\nb"}));
}

TEST_F(GameFiles, DefaultGameLoadsAtStartWithoutAPicker) {
    for (const std::string name : {"Cup", ""}) {
        start({"", "", "", {}, host.path(name.empty() ? "GONE.NTP" : "GAME.NTP")});
        EXPECT_EQ(values.game.GameName, name);
        EXPECT_EQ(windows.shown.back(), "main window");
        application.newGame();
        open(host, "GAME.NTP");
        EXPECT_EQ(loaded(), saved) << "the picker is needed again after the start";
    }
}

TEST_F(GameFiles, OnlyTheFolderDiffersOnAnotherSystem) {
    const TempFolder moved;
    const std::string there = host.read("GAME.NTP");
    for (const std::string other : {"/home/me/my game/", "D:\\Games\\"}) {
        std::string bytes = there;
        moved.write("GAME.NTP", bytes.replace(bytes.find(folder), folder.size(), other));
        moved.write("GAME.HST", host.read("GAME.HST"));
        open(moved, "GAME.NTP");
        application.saveGame();
        bytes.replace(bytes.find(other), other.size(), moved.path(""));
        EXPECT_EQ(moved.read("GAME.NTP"), bytes);
        EXPECT_EQ(host.read("GAME.NTP"), there);
    }
}

TEST_F(GameFiles, FoldersOfAnotherSystemAreNotLookedFor) {
    const std::filesystem::path before = std::filesystem::current_path();
    const TempFolder here;
    here.makeFolder("rel");
    for (const char* decoy : {"GAME.HST", "rel/GAME.HST"}) {
        here.write(decoy, std::string(13, '\x01') + '\0');
    }
    std::filesystem::current_path(toNativePath(here.path()));
    const std::string there = host.read("GAME.NTP");
    for (const std::string stored : {"", "rel/", "C:", "\\"}) {
        std::string bytes = there;
        host.write("GAME.NTP", bytes.replace(bytes.find(folder), folder.size(), stored));
        application.newGame();
        open(host, "GAME.NTP");
        EXPECT_EQ(values.game.GamePath, folder) << stored;
        EXPECT_EQ(values.game.GameYear, 2405) << stored;
    }
    EXPECT_EQ(here.names(), std::set<std::string>({"GAME.HST", "rel"}));
    std::filesystem::current_path(before);
}

TEST_F(GameFiles, MovedGamesAreFoundBesideTheirFile) {
    const TempFolder moved;
    moved.write("GAME.NTP", host.read("GAME.NTP"));
    moved.write("game.hst", std::string(13, '\x09') + '\0');
    open(moved, "GAME.NTP");
    EXPECT_EQ(loaded(), saved);
    std::filesystem::remove(toNativePath(host.path("GAME.HST")));
    open(moved, "GAME.NTP");
    EXPECT_EQ(values.game.GamePath, withSeparator(moved.path()));
    EXPECT_EQ(values.game.GameYear, 2409);
    EXPECT_EQ(windows.boxes, Texts());
    moved.write("game.hst", std::string(13, 'x'));
    windows.shown.clear();
    open(moved, "GAME.NTP");
    EXPECT_EQ(windows.shown, Texts({"file picker", "values", "box"}));
    EXPECT_EQ(loaded(), saved.substr(0, saved.size() - 4) + "9999") << "all else is there";
    std::filesystem::remove(toNativePath(moved.path("game.hst")));
    open(moved, "GAME.NTP");
    const std::string unusable = "Cannot use the host file ";
    EXPECT_EQ(windows.boxes, Texts({unusable + moved.path("GAME.HST") +
                                        "\r\nIt is shorter than 14 bytes and holds no game year",
                                    unusable + folder + "GAME.HST\r\nThere is no such file"}));
}

} // namespace turnpost
