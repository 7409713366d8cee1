#include "app/AppFixture.h"

#ifndef _WIN32
#include "support/Unprivileged.h"
#endif

namespace turnpost {

class GameFiles : public AppFixture {
  protected:
    GameFiles() {
        application.saveGame();
        boxes();
    }

    /// The boxes of saving the game in this folder, named after this host file.
    Texts savedAs(const std::string& path, const std::string& turnFile) {
        game.GamePath = path;
        game.rows[1].GameFile = turnFile;
        application.saveGame();
        return boxes();
    }

    Texts opened(const TempFolder& place) {
        open(place);
        return boxes();
    }

    const std::filesystem::path before = std::filesystem::current_path();
    void TearDown() override { std::filesystem::current_path(before); }

    const std::string unusable = "Cannot use the host file ";
};

TEST_F(GameFiles, MovedGamesAreFoundBesideTheirFile) {
    const TempFolder moved;
    const std::string there = host.read("GAME.NTP");
    const auto storedIn = [&](const std::string& elsewhere) {
        return std::string(there).replace(there.find(folder), folder.size(), elsewhere);
    };
    moved.write("GAME.NTP", there);
    moved.write("game.hst", std::string(13, '\x09') + '\0');
    EXPECT_EQ(opened(moved), Texts());
    EXPECT_EQ(values.game.GamePath, folder) << "the game is still there";
    // The folder of another system must not be looked for in the current folder.
    host.makeFolder("rel");
    host.write("rel/GAME.HST", std::string(13, '\x01') + '\0');
    std::filesystem::current_path(toNativePath(folder));
    for (const std::string elsewhere : {"/home/me/my game/", "D:\\Games\\", "", "rel/", "\\"}) {
        moved.write("GAME.NTP", storedIn(elsewhere));
        EXPECT_EQ(opened(moved), Texts());
        EXPECT_EQ(values.game.GameYear, 2409) << elsewhere;
        application.saveGame();
        EXPECT_EQ(boxes(), Texts{"Details saved to " + moved.path("GAME.NTP")});
        EXPECT_EQ(moved.read("GAME.NTP"), storedIn(moved.path("")));
    }
    moved.write("game.hst", "");
    const std::string tooShort = "\r\nIt is shorter than 14 bytes and holds no game year";
    EXPECT_EQ(opened(moved), Texts{unusable + moved.path("GAME.HST") + tooShort});
    std::filesystem::remove(toNativePath(moved.path("game.hst")));
    EXPECT_EQ(opened(moved),
              Texts{unusable + moved.path("GAME.HST") + "\r\nThere is no such file"});
    EXPECT_EQ(values.game.GameName, "Cup") << "all else is there";
}

TEST_F(GameFiles, SaveSaysWhereOrWhyNot) {
    game.rows[0].PlayerName = "Red\",\"Leader";
    EXPECT_EQ(savedAs(folder, "M2"),
              Texts({"Details saved to " + details,
                     "Not all of this can be read back from " + details + advice}));
    game.rows[0].PlayerName = "";
    host.makeFolder("sub");
    host.write("sub/NEW.NTP", "kept");
    std::filesystem::current_path(toNativePath(folder));
    for (const std::string elsewhere : {"sub/", "\\Stars\\"}) {
        EXPECT_EQ(
            savedAs(elsewhere, "NEW.M2"),
            Texts{"Cannot write " + elsewhere + "NEW.NTP\r\nIt is not a full path on this system"});
        application.configureStoredGames();
        EXPECT_EQ(boxes(), Texts{"Please save game details first"});
    }
    EXPECT_EQ(host.read("sub/NEW.NTP"), "kept");
#ifndef _WIN32
    host.write("new.ntp", "old");
    EXPECT_EQ(savedAs(folder, "NEW.M2"), Texts{"Details saved to " + folder + "new.ntp"});
    application.configureStoredGames();
    EXPECT_EQ(application.currentGameToStore(), (StoredGame{"Cup", details}));
    const std::string path = folder + std::string(600, 'a');
    EXPECT_EQ(savedAs(path, "NEW.M2"),
              Texts{"Cannot write " + path.substr(0, 250) + "..." + std::string(243, 'a') +
                    "NEW.NTP\r\nFile name too long"});
#endif
}

#ifndef _WIN32
// Root, who may read and write everything, is an ordinary user meanwhile.
TEST_F(GameFiles, UnusableFilesAreNamedWithTheReason) {
    const auto lock = [](const std::string& path, unsigned mode) {
        std::filesystem::permissions(path, std::filesystem::perms(mode));
    };
    const std::string denied = "\r\nPermission denied";
    lock(folder, 0777);
    lock(folder + "GAME.HST", 0);
    lock(details, 0444);
    {
        const Unprivileged person;
        find("GAME.HST");
        EXPECT_EQ(boxes(), Texts{unusable + folder + "GAME.HST" + denied});
        EXPECT_EQ(opened(host), Texts{unusable + folder + "GAME.HST" + denied});
        EXPECT_EQ(savedAs(folder, "GAME.M2"), Texts{"Cannot write " + details + denied});
    }
    lock(details, 0);
    const Unprivileged person;
    EXPECT_EQ(opened(host), Texts{"Cannot read " + details + denied});
    game.GameName = "\xFF";
    EXPECT_EQ(savedAs(folder, "NEW.M2"),
              Texts{"Cannot write " + folder + "NEW.NTP\r\nA name in it is not valid UTF-8"});
}
#endif

} // namespace turnpost
