#include "app/AppFixture.h"

namespace turnpost {

/// Makes each message box appear, except those of sending.
class MessageBoxes : public AppFixture {
  protected:
    using Command = std::function<void(Application&)>;

    // Expects these boxes in this order, and an unchanged game.
    void expectBoxes(const Command& command, const Texts& boxes) {
        const SharedValues before = values;
        windows.boxes.clear();
        command(application);
        EXPECT_EQ(windows.boxes, boxes);
        EXPECT_TRUE(values.game == before.game) << testing::PrintToString(boxes);
        EXPECT_EQ(values.message, before.message);
    }

    const Command start = &Application::startUp;
    const Command save = &Application::saveGame;
    const Command configure = &Application::configureStoredGames;
    const std::string ini = program.path("TURNPOST.INI");
    const std::string advice =
        "\r\nPlease take the double quotes out of names and addresses, and characters that this "
        "system's code page lacks, and save again.";
};

TEST_F(MessageBoxes, SaveSaysWhereOrWhyNot) {
    const std::string details = folder + "GAME.NTP";
    expectBoxes(configure, {"Please save game details first"});
    game.rows[0].PlayerName = "Red\",\"Leader";
    game.rows[1].GameFile = "M2";
    expectBoxes(save, {"Details saved to " + details,
                       "Not all of this can be read back from " + details + advice});
    application.storeMessage({"", std::string(1U << 20U, 'x')});
    expectBoxes(save, {"Cannot write " + details +
                       "\r\nIt would be larger than 1 MiB, and so not be read again"});
    application.storeMessage({});
    game.rows[1].GameFile = "OLD.M2";
    host.makeFolder("OLD.NTP");
    expectBoxes(save, {"Cannot write " + folder + "OLD.NTP\r\nIt is a folder, not a file"});
#ifndef _WIN32
    host.write("new.ntp", "old");
    game.rows[1].GameFile = "NEW.M2";
    game.rows[0].PlayerName = "";
    expectBoxes(save, {"Details saved to " + folder + "new.ntp"});
    expectBoxes(configure, {});
    EXPECT_EQ(application.currentGameToStore(), (StoredGame{"Cup", details}));
    game.GamePath = folder + std::string(600, 'a');
    expectBoxes(save, {"Cannot write " + game.GamePath.substr(0, 250) + "..." +
                       std::string(243, 'a') + "NEW.NTP\r\nFile name too long"});
#endif
    // Such a folder must not be taken as relative to the current folder.
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(toNativePath(folder));
    for (const std::string elsewhere : {"", "sub/", "\\Stars\\", "C:GAME/"}) {
        host.makeFolder("sub");
        host.write("sub/NEW.NTP", "kept");
        game.GamePath = elsewhere;
        game.rows[1].GameFile = "NEW.M2";
        expectBoxes(save, {elsewhere.empty() ? "No game details entered"
                                             : "Cannot write " + elsewhere +
                                                   "NEW.NTP\r\nIt is not a full path on this "
                                                   "system"});
        expectBoxes(configure,
                    {elsewhere.empty() ? "Please find a game" : "Please save game details first"});
    }
    EXPECT_EQ(host.read("sub/NEW.NTP"), "kept");
    std::filesystem::current_path(before);
    game.GamePath = "";
    expectBoxes(save, {"No game details entered"});
    expectBoxes(configure, {"Please find a game"});
    game.GameName = "";
    expectBoxes(configure, {"Please enter a game name"});
}

TEST_F(MessageBoxes, FailedOpenSaysWhyAndChangesNothing) {
    host.write("BAD.NTP", "\"a\"\r\n\"b\"\r\n\"c");
    host.write("LARGE.NTP", std::string((1U << 20U) + 1, '\n'));
    host.write("FAR.HST", std::string(12, 'x') + "\xA0\x76");
    const std::string damaged = "The game details file is damaged: " + folder;
    const std::string unusable = "Cannot use the host file " + folder;
    const auto expectNot = [this](const std::string& file, const std::string& box) {
        willPick(host, file);
        expectBoxes(file.ends_with(".HST") ? &Application::findGame : &Application::openGame,
                    {box});
    };
    expectNot("NONE.NTP", "Gamefile not found");
    expectNot("BAD.NTP", damaged + "BAD.NTP\r\nIt is not a game details file, or only part of one");
    expectNot("LARGE.NTP", damaged + "LARGE.NTP\r\nIt is larger than 1 MiB");
    expectNot("FAR.HST", unusable + "FAR.HST\r\nIts game year is above 32767");
    expectNot("NONE.HST", unusable + "NONE.HST\r\nNo such file or directory");
    application.storeStoredGames({{{" - Empty - ", folder + "BAD.NTP"}, {"No file", ""}, {}, {}}});
    for (const int slot : {1, 2}) {
        expectBoxes([slot](Application& started) { started.loadStoredGame(slot); },
                    Texts(slot == 1 ? 0 : 1, "Game details not found"));
    }
}

TEST_F(MessageBoxes, BadSettingsAreReportedAndTheProgramRunsOn) {
    const auto store = [](const std::string& name) {
        return [name](Application& started) { started.storeEmailSettings(name, "a@b", "mail"); };
    };
    expectBoxes(store("The \"Great\" Host"), {});
    expectBoxes(store("Red\" \r\n\"Host"),
                {"Not all of this can be read back from " + ini + advice});
    application.newGame();
    program.write("TURNPOST.INI", printSettings({"", "", "", {}, "/gone.NTP"}));
    expectBoxes(start, {"Default Gamefile not found"});
    program.write("TURNPOST.INI", "\"Host\"\r\n\"host@exam");
    program.write("TURNPOST.BAD", "older");
    expectBoxes(start, {"The settings file is damaged: " + ini +
                        "\r\nWhat could be read was taken; the rest is empty. Before the settings "
                        "are saved, the damaged file is kept beside it as TURNPOST.BAD2."});
    std::filesystem::remove(toNativePath(ini));
    program.makeFolder("TURNPOST.INI");
    expectBoxes(start, {"Cannot read " + ini + "\r\nIt is a folder, not a file"});
    EXPECT_EQ(windows.shown.back(), "main window");
    expectBoxes(store("Host"), {"Cannot write " + ini + "\r\nIt is a folder, not a file"});
    EXPECT_EQ(values.settings.HostName, "Host") << "the values stay until the end of the program";
}

} // namespace turnpost
