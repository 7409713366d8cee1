#include "app/AppFixture.h"

#include "storage/GameDetailsFile.h"

namespace turnpost {

class GameFiles : public AppFixture {
  protected:
    GameFiles() {
        startWithGame();
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

    void removeHostFile() const { std::filesystem::remove(toNativePath(host.path("GAME.HST"))); }

    std::string saved;
};

TEST_F(GameFiles, OpenBringsBackTheGameWithTheYearOfTodayAndKeepsTheAttachments) {
    EXPECT_EQ(host.read("GAME.NTP") + "2405", saved);
    writeHostFile('\x06');
    application.storeAttachments({0, 1, {"a", "", "c"}});
    windows.inFilePicker = [this] { application.cancelPicker(); };
    application.openGame();
    open(host, "game.ntp");
    EXPECT_EQ(values.picker.PickerMessage, "Find Nimbus Turnpost File (*.NTP)");
    EXPECT_EQ(values.picker.PickerPattern, "*.NTP");
    EXPECT_EQ(windows.shown, Texts({"file picker", "file picker", "values"}));
    EXPECT_EQ(loaded(), saved.substr(0, saved.size() - 1) + "6");
    EXPECT_EQ(values.attachments, AttachmentChoices({0, 1, {"a", "", "c"}}));
    game.GameName = "Mug";
    application.saveGame();
    EXPECT_EQ(host.read("GAME.NTP") + "2406", loaded());
}

TEST_F(GameFiles, LineBreaksInAFilesNamesDoNotReachTheOneLineBoxes) {
    std::string text =
        "\"Cup\r\nX\",\"p\",\"h\",\"Turn\nX\",\"a\r\nb\"\r\n1,1,\"Red\rX\",\"e\",\"\",\"\"";
    for (int row = 1; row < rowCount; ++row) {
        text += "\r\n0,0,\"\",\"\",\"\",\"\"";
    }
    host.write("GAME.NTP", text);
    open(host, "GAME.NTP");
    EXPECT_EQ(values.game.GameName, "Cup X");
    EXPECT_EQ(values.game.rows[0].PlayerName, "Red X");
    EXPECT_EQ(values.message, (MessageTemplate{"Turn X", "a\r\nb"}));
}

TEST_F(GameFiles, TheDefaultGameIsLoadedAtTheStartOnlyAndWithoutAPicker) {
    start({"", "", "", {}, host.path("GAME.NTP")});
    EXPECT_EQ(windows.shown, Texts({"Nimbus Turnpost Version 1.3.0", "progress 0.000000", "values",
                                    "values", "main window"}));
    EXPECT_EQ(loaded(), saved);
    EXPECT_EQ(windows.boxes, Texts());
    for (const char* defaultGame : {"GAME.NTP", "GONE.NTP"}) {
        start({"", "", "", {}, host.path(defaultGame)});
        application.newGame();
        open(host, "GAME.NTP");
        EXPECT_EQ(loaded(), saved) << "only the start needs no picker";
    }
}

TEST_F(GameFiles, AMovedGameIsTheOneBesideItsFileUnlessTheOldPlaceStillHoldsIt) {
    const TempFolder moved;
    moved.write("GAME.NTP", host.read("GAME.NTP"));
    moved.write("game.hst", std::string(13, '\x09') + '\0');
    open(moved, "GAME.NTP");
    EXPECT_EQ(loaded(), saved);
    removeHostFile();
    open(moved, "GAME.NTP");
    EXPECT_EQ(values.game.GamePath, withSeparator(moved.path()));
    EXPECT_EQ(values.game.GameYear, 2409);
    EXPECT_EQ(windows.boxes, Texts());
    moved.write("game.hst", "short");
    open(moved, "GAME.NTP");
    EXPECT_EQ(windows.boxes, Texts{"Cannot use the host file " + moved.path("GAME.HST") +
                                   "\r\nIt is shorter than 14 bytes and holds no game year"});
}

TEST_F(GameFiles, WithoutAHostFileAllElseIsLoadedAndShownBeforeThatIsSaid) {
    const TempFolder moved;
    moved.write("GAME.NTP", host.read("GAME.NTP"));
    removeHostFile();
    open(moved, "GAME.NTP");
    EXPECT_EQ(loaded(), saved.substr(0, saved.size() - 4) + "9999");
    EXPECT_EQ(windows.shown, Texts({"file picker", "values", "box"}));
    EXPECT_EQ(windows.boxes,
              Texts{"Cannot use the host file " + folder + "GAME.HST\r\nThere is no such file"});
}

} // namespace turnpost
