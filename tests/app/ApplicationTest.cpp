#include "app/AppFixture.h"

namespace turnpost {

class Commands : public AppFixture {
  protected:
    Commands() { game.rows[3].PlayerEmail = "four@example.org"; }
};

TEST_F(Commands, AFirstRunAsksForTheSettingsBeforeTheWindowIsShown) {
    std::filesystem::remove(toNativePath(program.path("TURNPOST.INI")));
    windows.inEmailSettings = [this] {
        application.storeEmailSettings("Host", "host@example.org", "mail");
    };
    application.startUp();
    EXPECT_EQ(windows.shown, Texts({"Nimbus Turnpost Version 1.3.0", "e-mail settings",
                                    "progress 0.000000", "values", "main window"}));
    EXPECT_TRUE(program.read("TURNPOST.INI").starts_with("\"Host\"\r\n\"host@example.org\"\r\n"));
}

TEST_F(Commands, ASlotNamesTheFileAfterTheHostFileAlsoWhereSaveDoesNot) {
    game.rows[1].GameFile = "OLD.M2";
    application.saveGame();
    application.configureStoredGames();
    EXPECT_EQ(windows.shown, Texts({"box", "stored games", "values"}));
    EXPECT_EQ(application.currentGameToStore(), (StoredGame{"Cup", folder + "GAME.NTP"}));
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
    mailMessages->inSend = [this] {
        if (game.rows[3].PlayerEmail != "late@example.org") {
            application.butSend_Click();
            application.sendByMailSystem();
            game.rows[3].PlayerEmail = "late@example.org";
        }
        return std::nullopt;
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
