#include "app/AppFixture.h"

#include "platform/CodePage.h"
#include "storage/GameDetailsFile.h"

namespace turnpost {

class GameFiles : public AppFixture {
  protected:
    GameFiles() {
        startWithGame();
        application.game().rows[0].IncludePlayer = 2;
        application.storeMessage({"Turn", "Hello\r\n\"you\", all"});
        saved = loaded();
        application.saveGame();
        expectBox("Details saved to " + folder + "GAME.NTP");
        application.newGame();
        windows.shown.clear();
    }

    // Everything that a game details file sets, and the year.
    std::string loaded() const {
        return printGameDetails(values.game, values.message) + std::to_string(values.game.GameYear);
    }

    void open(const TempFolder& place, const std::string& file) {
        willPick(place.path(), file);
        application.openGame();
    }

    // One box since the last look.
    void expectBox(const std::string& beginning) {
        EXPECT_EQ(windows.boxes.size(), 1U);
        EXPECT_TRUE(windows.boxes.back().starts_with(beginning)) << windows.boxes.back();
        windows.boxes.clear();
    }

    void removeHostFile() const { std::filesystem::remove(toNativePath(host.path("GAME.HST"))); }

    std::string saved;
    std::string folder = withSeparator(host.path());
};

TEST_F(GameFiles, SaveWritesTheWholeGameOverAnOldFileOrSaysWhyNot) {
    EXPECT_EQ(host.read("GAME.NTP") + "2405", saved);
    open(host, "GAME.NTP");
    application.game().GameName = "Mug";
    application.game().GamePath = host.path() + "\\";
    application.saveGame();
    EXPECT_EQ(host.read("GAME.NTP") + "2405", loaded());
    expectBox("Details saved to " + folder + "GAME.NTP");
    const std::string before = host.read("GAME.NTP");
    application.storeMessage({"", std::string(1U << 20U, 'x')});
    application.saveGame();
    expectBox("Cannot write " + folder + "GAME.NTP\r\nIt would be larger");
    EXPECT_EQ(host.read("GAME.NTP"), before);
    application.storeMessage({});
    application.game().rows[1].GameFile = "FOLDER.M2";
    host.makeFolder("FOLDER.NTP");
    application.saveGame();
    expectBox("Cannot write " + folder + "FOLDER.NTP\r\nIt is a folder");
    for (int i = 0; i < 10; ++i) {
        application.game().GamePath += application.game().GamePath + "\u00E4";
    }
    application.saveGame();
    EXPECT_TRUE(windows.boxes.back().size() < 1000 && isUtf8(windows.boxes.back()));
    expectBox("Cannot write " + folder);
    application.newGame();
    application.saveGame();
    expectBox("No game details entered");
}

TEST_F(GameFiles, WhatAFileWillNotGiveBackIsSaidWhenItIsWrittenAndNotWhenItIsTooLate) {
    open(host, "GAME.NTP");
    application.game().rows[0].PlayerName = "Red\",\"Leader";
    application.saveGame();
    ASSERT_EQ(windows.boxes.size(), 2U);
    EXPECT_EQ(windows.boxes[0], "Details saved to " + folder + "GAME.NTP");
    windows.boxes.erase(windows.boxes.begin());
    expectBox("Not all of this can be read back from " + folder + "GAME.NTP\r\n");
    application.storeStoredGames({{{"Red\",\"Cup", "a"}, {}, {}, {}}});
    expectBox("Not all of this can be read back from " + program.path("TURNPOST.INI"));
    application.storeEmailSettings("The \"Great\" Host", "", "");
    windows.boxes.clear();
    application.storeStoredGames({});
    EXPECT_EQ(windows.boxes, Texts());
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

TEST_F(GameFiles, OpenBringsBackTheGameWithTheYearOfTodayAndKeepsTheAttachments) {
    writeHostFile('\x06');
    application.storeAttachments({0, 1, {"a", "", "c"}});
    open(host, "GAME.NTP");
    EXPECT_EQ(values.picker.PickerMessage, "Find Nimbus Turnpost File (*.NTP)");
    EXPECT_EQ(values.picker.PickerPattern, "*.NTP");
    EXPECT_EQ(windows.shown, Texts({"file picker", "values"}));
    EXPECT_EQ(loaded(), saved.substr(0, saved.size() - 1) + "6");
    EXPECT_EQ(values.attachments, AttachmentChoices({0, 1, {"a", "", "c"}}));
}

TEST_F(GameFiles, WhatCannotBeOpenedLeavesEverythingAsItWas) {
    open(host, "GAME.NTP");
    application.game().GameName = "Mug";
    const std::string before = loaded();
    host.write("BAD.NTP", saved.substr(0, 100));
    open(host, "MISSING.NTP");
    expectBox("Gamefile not found");
    open(host, "BAD.NTP");
    expectBox("The game details file is damaged: " + host.path("BAD.NTP") + "\r\nIt holds ");
    windows.inFilePicker = [this] { application.cancelPicker(); };
    application.openGame();
    EXPECT_EQ(windows.shown.back(), "file picker");
    EXPECT_EQ(loaded(), before);
}

TEST_F(GameFiles, TheDefaultGameIsLoadedAtTheStartWithoutAPickerOrSaidToBeMissing) {
    start({"", "", "", {}, host.path("GAME.NTP")});
    EXPECT_EQ(windows.shown, Texts({"Nimbus Turnpost Version 1.3.0", "progress 0.000000", "values",
                                    "values", "main window"}));
    EXPECT_EQ(loaded(), saved);
    EXPECT_EQ(windows.boxes, Texts());
    start({"", "", "", {}, host.path("GONE.NTP")});
    expectBox("Default Gamefile not found");
    open(host, "GAME.NTP");
    EXPECT_EQ(loaded(), saved) << "only the start needs no picker";
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
    expectBox("Cannot use the host file " + moved.path("GAME.HST") + "\r\nIt is shorter");
}

TEST_F(GameFiles, WithoutAUsableHostFileAllElseIsLoadedAndTheYearIsUnset) {
    removeHostFile();
    for (const char* reason : {"There is no such file", "It is shorter than 14 bytes"}) {
        open(host, "GAME.NTP");
        EXPECT_EQ(loaded(), saved.substr(0, saved.size() - 4) + "9999");
        EXPECT_EQ(windows.shown.back(), "box") << "what was loaded must be seen behind it";
        expectBox("Cannot use the host file " + folder + "GAME.HST\r\n" + reason);
        host.write("GAME.HST", "short");
    }
}

} // namespace turnpost
