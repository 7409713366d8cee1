#include "app/AppFixture.h"

namespace turnpost {

class Commands : public AppFixture {
  protected:
    Commands() {
        startWithGame();
        application.storeEmailSettings("Host", "host@example.org", "mail:2525");
        application.game().rows[3].PlayerEmail = "four@example.org";
    }
};

TEST_F(Commands, NewForgetsTheGameAndTheAttachmentsButNoSettings) {
    const auto year = values.game.GameYear;
    application.storeMessage({"subject", "body"});
    application.storeAttachments({0, 1, {"a", "b", "c"}});
    application.newGame();
    EXPECT_EQ(values.game.rows[3].IncludePlayer, 1);
    EXPECT_EQ(values.game.GameYear, year);
    EXPECT_EQ(windows.shown, Texts{"values"});
    EXPECT_EQ(values.game.GameName + values.game.GamePath + values.game.HostFileName, "");
    EXPECT_EQ(values.message, MessageTemplate());
    EXPECT_EQ(values.attachments, AttachmentChoices());
    EXPECT_EQ(values.settings.HostName, "Host");
}

TEST_F(Commands, ABadHostFileIsNamedAndNothingChanges) {
    host.write("short.hst", std::string(13, 'x'));
    willPick(host.path(), "short.hst");
    application.findGame();
    EXPECT_NE(windows.boxes.at(0).find(host.path("short.hst")), std::string::npos);
    EXPECT_EQ(values.game.HostFileName, "GAME.HST");
    EXPECT_EQ(values.game.rows[3].PlayerEmail, "four@example.org");
}

TEST_F(Commands, InvertTakesTheDistanceToOneOfAValueReadFromAFile) {
    application.game().rows[0].IncludePlayer = 2;
    application.selectPlayers(PlayerSelection::Invert);
    EXPECT_EQ(values.game.rows[0].IncludePlayer, 1);
}

TEST_F(Commands, OnlyADefaultGameChangesTheSettings) {
    const std::string before = program.read("TURNPOST.INI");
    application.pickFile("/stars", "CUP.NTP", false);
    EXPECT_EQ(program.read("TURNPOST.INI"), before);
    application.pickFile("/", "CUP.NTP", true);
    EXPECT_EQ(values.settings.DefaultGameFile, "/CUP.NTP");
    EXPECT_TRUE(program.read("TURNPOST.INI").ends_with("\"/CUP.NTP\"\r\n"));
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
        application.game().rows[3].PlayerEmail = "late@example.org";
        whileMailing = [] {};
    };
    application.game().rows[0].PlayerEmail = "one@example.org";
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
