#include "app/AppFixture.h"

namespace turnpost {

/// How each message box is brought about in a program that has found and named a game.
class MessageBoxes : public AppFixture {
  protected:
    using Command = std::function<void(Application&)>;

    MessageBoxes() { startWithGame(); }

    // These boxes in order, and the game stays as it was.
    void expectBoxes(const Command& command, const Texts& boxes) {
        const SharedValues before = values;
        windows.boxes.clear();
        command(application);
        EXPECT_EQ(windows.boxes, boxes);
        EXPECT_TRUE(values.game == before.game) << testing::PrintToString(boxes);
        EXPECT_EQ(values.message, before.message);
    }

    void expectNotSaved(const std::string& pathAndReason) {
        expectBoxes(&Application::saveGame, {"Cannot write " + pathAndReason});
    }

    void expectUnusable(const std::string& hostFile, const std::string& reason) {
        willPick(host.path(), hostFile);
        expectBoxes(&Application::findGame,
                    {"Cannot use the host file " + folder + hostFile + "\r\n" + reason});
    }

    const Command start = &Application::startUp;
    const Command save = &Application::saveGame;
    const Command configure = &Application::configureStoredGames;
    const std::string ini = program.path("TURNPOST.INI");
    const std::string advice =
        "\r\nPlease take the double quotes out of names and addresses, and characters that this "
        "system's code page lacks, and save again.";
};

TEST_F(MessageBoxes, OfSavingSayWhereOrWhyNot) {
    expectBoxes(configure, {"Please save game details first"});
    expectBoxes(save, {"Details saved to " + folder + "GAME.NTP"});
    game.rows[0].PlayerName = "Red\",\"Leader";
    expectBoxes(save, {"Details saved to " + folder + "GAME.NTP",
                       "Not all of this can be read back from " + folder + "GAME.NTP" + advice});
    application.storeMessage({"", std::string(1U << 20U, 'x')});
    expectNotSaved(folder + "GAME.NTP\r\nIt would be larger than 1 MiB, and so not be read again");
    application.storeMessage({});
    game.rows[1].GameFile = "OLD.M2";
    host.makeFolder("OLD.NTP");
    expectNotSaved(folder + "OLD.NTP\r\nIt is a folder, not a file");
    expectBoxes(configure, {"Please save game details first"});
#ifndef _WIN32
    host.write("new.ntp", "old");
    game.rows[1].GameFile = "NEW.M2";
    game.rows[0].PlayerName = "";
    expectBoxes(save, {"Details saved to " + folder + "new.ntp"});
    game.GamePath += "none\\deep\\";
    expectNotSaved(folder + "none/deep/NEW.NTP\r\nNo such file or directory");
    game.GamePath = "/" + std::string(600, 'a');
    expectNotSaved("/" + std::string(249, 'a') + "..." + std::string(243, 'a') +
                   "NEW.NTP\r\nFile name too long");
#endif
    game.GamePath = "";
    expectBoxes(save, {"No game details entered"});
    expectBoxes(configure, {"Please find a game"});
    game.GameName = "";
    expectBoxes(configure, {"Please enter a game name"});
    expectBoxes(&Application::butSend_Click, {"Invalid game path"});
}

TEST_F(MessageBoxes, OfOpeningSayWhyNotAndTheGameStaysAsItWas) {
    const auto expectNot = [this](const std::string& file, const std::string& box) {
        willPick(host.path(), file);
        expectBoxes(&Application::openGame, {box});
    };
    host.makeFolder("FOLDER.NTP");
    host.write("BAD.NTP", "\"a\"\r\n\"b\"\r\n\"c");
    host.write("LARGE.NTP", std::string((1U << 20U) + 1, '\n'));
    host.write("SHORT.HST", std::string(13, '\1'));
    host.write("FAR.HST", std::string(12, 'x') + "\xA0\x76");
    const std::string damaged = "The game details file is damaged: " + folder;
    expectNot("NONE.NTP", "Gamefile not found");
    expectNot("FOLDER.NTP", "Gamefile not found");
    expectNot("BAD.NTP", damaged + "BAD.NTP\r\nIt holds 2 values that can be read, not 101");
    expectNot("LARGE.NTP", damaged + "LARGE.NTP\r\nIt is larger than 1 MiB");
    expectUnusable("SHORT.HST", "It is shorter than 14 bytes and holds no game year");
    expectUnusable("FAR.HST", "Its game year is above 32767");
    expectUnusable("NONE.HST", "No such file or directory");
    application.storeStoredGames({{{" - Empty - ", folder + "BAD.NTP"},
                                   {"Gone", "/gone.NTP"},
                                   {"No file", ""},
                                   {"A folder", folder}}});
    for (const int slot : {1, 2, 3, 4}) {
        expectBoxes([slot](Application& started) { started.loadStoredGame(slot); },
                    Texts(slot == 1 ? 0 : 1, "Game details not found"));
    }
}

TEST_F(MessageBoxes, OfTheSettingsSayWhatIsWrongWithTheirFileAndTheProgramRunsOn) {
    const auto store = [](const std::string& name) {
        return [name](Application& started) { started.storeEmailSettings(name, "a@b", "mail"); };
    };
    expectBoxes(store("The \"Great\" Host"), {});
    expectBoxes(store("Red\" \r\n\"Host"),
                {"Not all of this can be read back from " + ini + advice});
    application.newGame();
    program.write("TURNPOST.INI", printSettings({"", "", "", {}, "/gone.NTP"}));
    expectBoxes(start, {"Default Gamefile not found"});
    const std::string damaged =
        "The settings file is damaged: " + ini +
        "\r\nWhat could be read was taken; the rest is empty. Before the settings are saved, the "
        "damaged file is kept beside it as TURNPOST.BAD";
    program.write("TURNPOST.INI", "\"Host\"\r\n\"host@exam");
    expectBoxes(start, {damaged + "."});
    program.write("TURNPOST.BAD", "older");
    expectBoxes(start, {damaged + "2."});
    std::filesystem::remove(toNativePath(ini));
    program.makeFolder("TURNPOST.INI");
    expectBoxes(start, {"Cannot read " + ini + "\r\nIt is a folder, not a file"});
    EXPECT_EQ(windows.shown.back(), "main window");
    expectBoxes(store("Host"), {"Cannot write " + ini + "\r\nIt is a folder, not a file"});
    EXPECT_EQ(values.settings.HostName, "Host") << "the values stay for the run";
}

TEST_F(MessageBoxes, OfSendingSayWhyNot) {
    const Command send = &Application::butSend_Click;
    application.storeEmailSettings("", "", "  ");
    expectBoxes(send, {"No SMTP server address entered"});
    application.storeEmailSettings("", "", "mail:");
    expectBoxes(send, {"Invalid SMTP server address"});
    application.storeEmailSettings("", "", "mail");
    game.rows[3].PlayerEmail = "four@example.org";
    application.butSend_Click();
    expectBoxes([this](Application&) { socket.fail(10061, "refused"); },
                {"Winsock Error number 10061\r\nrefused"});
}

} // namespace turnpost
