#include "app/AppFixture.h"

namespace turnpost {

class StartUp : public AppFixture {};

TEST_F(StartUp, AFirstRunAsksForTheSettingsBeforeTheWindowIsShown) {
    for (PlayerSlot& row : game.rows) {
        row = {1, "x", "x", "x", "x", true};
    }
    application.storeMessage({"subject", "body"});
    application.storeAttachments({0, 1, {"a", "b", "c"}});
    windows.inEmailSettings = [this] {
        application.storeEmailSettings("Host", "host@example.org", "mail");
    };
    application.startUp();
    EXPECT_EQ(windows.shown, Texts({"Nimbus Turnpost Version 1.3.0", "e-mail settings",
                                    "progress 0.000000", "values", "main window"}));
    EXPECT_TRUE(program.read("TURNPOST.INI").starts_with("\"Host\"\r\n\"host@example.org\"\r\n"));
    for (const PlayerSlot& row : values.game.rows) {
        EXPECT_EQ(row, (PlayerSlot{1, "", "", "", "", false}));
    }
    EXPECT_EQ(values.message, MessageTemplate());
    EXPECT_EQ(values.attachments, (AttachmentChoices{1, 0, {}}));
}

class Commands : public AppFixture {
  protected:
    Commands() {
        startWithGame();
        game.rows[3].PlayerEmail = "four@example.org";
    }
};

TEST_F(Commands, FindingAGameShowsItAndNewForgetsItAndTheAttachmentsButNoSettings) {
    find("GAME.HST");
    EXPECT_EQ(values.picker.PickerMessage, "Find Stars! Host File (*.HST)");
    EXPECT_EQ(values.picker.PickerPattern, "*.HST");
    application.storeMessage({"subject", "body"});
    application.storeAttachments({0, 1, {"a", "b", "c"}});
    application.newGame();
    EXPECT_EQ(windows.shown, Texts({"file picker", "values", "values"}));
    GameDetails empty;
    empty.GameYear = 2405;
    empty.rows[0].IncludePlayer = empty.rows[3].IncludePlayer = 1;
    EXPECT_TRUE(values.game == empty);
    EXPECT_EQ(values.message, MessageTemplate());
    EXPECT_EQ(values.attachments, (AttachmentChoices{1, 0, {}}));
    EXPECT_EQ(values.settings.HostName, "Host");
}

TEST_F(Commands, TicksChangeInShownRowsOnly) {
    using Ticks = std::array<int, 5>;
    const std::vector<std::pair<PlayerSelection, Ticks>> cases = {
        {PlayerSelection::All, {1, 1, 1, 1, 0}},
        {PlayerSelection::None, {0, 0, 0, 1, 0}},
        {PlayerSelection::Invert, {1, 0, 1, 1, 0}}};
    for (const auto& [selection, expected] : cases) {
        Ticks ticks = {0, 1, 2, 1, 0};
        for (size_t i = 0; i < ticks.size(); ++i) {
            game.rows.at(i).IncludePlayer = ticks.at(i);
            game.rows.at(i).Shown = i < 3;
        }
        application.selectPlayers(selection);
        EXPECT_EQ(windows.shown.back(), "values");
        for (size_t i = 0; i < ticks.size(); ++i) {
            EXPECT_EQ(values.game.rows.at(i).IncludePlayer, expected.at(i)) << i;
        }
    }
}

TEST_F(Commands, ThePickerGivesAFileAgainAfterACancelAndOnlyADefaultGameChangesTheSettings) {
    const std::string before = program.read("TURNPOST.INI");
    windows.inFilePicker = [this] { application.cancelPicker(); };
    EXPECT_EQ(application.pickExtraAttachment(), "");
    application.findGame();
    EXPECT_EQ(values.game.GameName, "Cup");
    willPick("/stars", "EXTRA");
    EXPECT_EQ(application.pickExtraAttachment(), std::string("/stars") + pathSeparator + "EXTRA");
    EXPECT_EQ(values.picker.PickerMessage, "Find file to send as an extra attachment");
    EXPECT_EQ(values.picker.PickerPattern, "*.*");
    EXPECT_EQ(program.read("TURNPOST.INI"), before);
    application.pickFile("/", "CUP.NTP", true);
    EXPECT_EQ(program.read("TURNPOST.INI"),
              before.substr(0, before.size() - 4) + "\"/CUP.NTP\"\r\n");
    EXPECT_EQ(values.settings.DefaultGameFile, "/CUP.NTP");
}

TEST_F(Commands, AGameGoesIntoASlotAndTheSettingsFileAndComesBackByItsEntry) {
    const StoredGame stored{"Cup", folder + "GAME.NTP"};
    game.rows[1].GameFile = "OLD.M2";
    application.saveGame();
    windows.inStoredGames = [&] {
        game.GameName = "as it was when the dialog was opened";
        EXPECT_EQ(application.currentGameToStore(), stored);
        application.storeStoredGames({{{}, {}, {"Cup", folder + "OLD.NTP"}, {}}});
    };
    application.configureStoredGames();
    EXPECT_EQ(windows.shown, Texts({"box", "stored games", "values"}));
    EXPECT_NE(program.read("TURNPOST.INI").find("\"Cup\",\"" + folder + "OLD.NTP\"\r\n"),
              std::string::npos);
    application.newGame();
    application.loadStoredGame(3);
    EXPECT_EQ(windows.boxes.size(), 1U);
    EXPECT_EQ(values.game.GameName, "Cup");
    EXPECT_TRUE(values.game.rows[3].Shown);
}

TEST_F(Commands, ASendUsesTheValuesOfNowAndEndsWithTheProgram) {
    application.butSend_Click();
    EXPECT_EQ(values.report[0], "No Email Address for Player");
    socket.arrive("220 ready\r\n");
    application.shutDown();
    EXPECT_FALSE(socket.isOpen());
    socket.arrive("250 OK\r\n");
    EXPECT_EQ(socket.servers, Texts{"mail:2525"});
    EXPECT_EQ(socket.sent, Texts{"HELO host\r\n"});
}

TEST_F(Commands, TheMailSystemTakesOverOnlyFromAServerThatIsGoneOrSilentForAMinute) {
    for (const bool gone : {true, false}) {
        socket.silent = std::chrono::seconds(59);
        application.butSend_Click();
        application.sendByMailSystem();
        EXPECT_EQ(std::exchange(windows.boxes, {}), Texts{"A send is already in progress"});
        EXPECT_EQ(values.report[3], "");
        socket.arrive("220 ready\r\n");
        EXPECT_EQ(socket.sent.back(), "HELO host\r\n") << "the send must go on";
        if (gone) {
            socket.Close();
        } else {
            socket.silent = std::chrono::seconds(60);
        }
        application.sendByMailSystem();
        EXPECT_TRUE(windows.boxes.empty());
        EXPECT_EQ(windows.shown.back(), "report");
        EXPECT_FALSE(socket.isOpen());
        socket.arrive("250 late\r\n");
        EXPECT_EQ(values.report[3], "Email Generated OK");
    }
}

TEST_F(Commands, WhileAMailClientRunsAMessageLoopOfItsOwnNeitherButtonStartsASecondSend) {
    whileMailing = [this] {
        application.butSend_Click();
        application.sendByMailSystem();
        game.rows[3].PlayerEmail = "late@example.org";
        whileMailing = [] {};
    };
    game.rows[0].PlayerEmail = "one@example.org";
    for (const std::string address : {"four@example.org", "late@example.org"}) {
        application.sendByMailSystem();
        std::erase_if(mailCalls, [](const std::string& call) { return !call.starts_with("Addr"); });
        EXPECT_EQ(std::exchange(mailCalls, {}),
                  Texts({"Address one@example.org", "Address " + address}));
    }
    EXPECT_EQ(windows.boxes, Texts(2, "A send is already in progress"));
    EXPECT_TRUE(socket.servers.empty());
}

} // namespace turnpost
